#pragma once

#include <QtCore/QtGlobal>

namespace driftbox {

/// Keeps what the engine has to say about its start out of the log, for as long as this lives:
/// which graphics it would have liked, and which sandbox it was told not to use. Failures are
/// logged all the same. Made and destroyed on the main thread, one at a time; the engine talks on
/// threads of its own, too.
class EngineLogFilter
{
public:
    EngineLogFilter();
    ~EngineLogFilter();
    Q_DISABLE_COPY_MOVE(EngineLogFilter)

    /// The engine is there. One thing it says later, as it sets up its drawing.
    void startIsOver();

private:
    static void handle(QtMsgType type, const QMessageLogContext& context, const QString& message);
};

} // namespace driftbox
