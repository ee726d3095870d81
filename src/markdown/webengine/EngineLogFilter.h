#pragma once

#include <QtCore/QtGlobal>

namespace driftbox {

/// Drops the engine's startup messages, about unavailable graphics and the disabled sandbox, from
/// the log while this object exists. Errors are logged nevertheless. Created and destroyed on the
/// main thread, one at a time; messages may come from any thread.
class EngineLogFilter
{
public:
    EngineLogFilter();
    ~EngineLogFilter();
    Q_DISABLE_COPY_MOVE(EngineLogFilter)

    /// The engine has started. One known message that it logs later, while setting up rendering, is
    /// still dropped.
    void startupFinished();

private:
    static void handle(QtMsgType type, const QMessageLogContext& context, const QString& message);
};

} // namespace driftbox
