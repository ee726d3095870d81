#pragma once

#include <QtCore/QString>
#include <QtCore/QtGlobal>

namespace driftbox {

/// A line of the log that a test waits for; it is no complaint, however often it comes. One at a
/// time. Main thread only.
class AwaitedLine
{
public:
    /// Looks out for lines that begin like this for as long as it lives.
    explicit AwaitedLine(const QString& beginning);
    ~AwaitedLine();
    AwaitedLine(const AwaitedLine&) = delete;
    AwaitedLine& operator=(const AwaitedLine&) = delete;

    /// How often it has come.
    [[nodiscard]] int count() const { return m_count; }

private:
    static void handle(QtMsgType type, const QMessageLogContext& context, const QString& message);

    QString m_beginning;
    QtMessageHandler m_others;
    int m_count = 0;
};

} // namespace driftbox
