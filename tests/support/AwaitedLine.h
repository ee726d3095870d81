#pragma once

#include <QtCore/QString>
#include <QtCore/QtGlobal>

namespace driftbox {

/// Counts log messages that a test expects, so that they do not fail the test. At most one instance
/// at a time. Main thread only.
class AwaitedLine
{
public:
    /// Counts messages that start with `beginning` during its lifetime.
    explicit AwaitedLine(const QString& beginning);
    ~AwaitedLine();
    AwaitedLine(const AwaitedLine&) = delete;
    AwaitedLine& operator=(const AwaitedLine&) = delete;

    /// The number of matching messages so far.
    [[nodiscard]] int count() const { return m_count; }

private:
    static void handle(QtMsgType type, const QMessageLogContext& context, const QString& message);

    QString m_beginning;
    QtMessageHandler m_previousHandler;
    int m_count = 0;
};

} // namespace driftbox
