#pragma once

#include <QtCore/QtGlobal>

namespace driftbox {

/// Keeps what the engine has to say about its start out of the log, for as long as this lives:
/// which graphics it would have liked, and which sandbox it was told not to use. Failures are
/// logged all the same. Main thread only, one at a time.
class EngineChatter
{
public:
    EngineChatter();
    ~EngineChatter();
    EngineChatter(const EngineChatter&) = delete;
    EngineChatter& operator=(const EngineChatter&) = delete;

private:
    static void handle(QtMsgType type, const QMessageLogContext& context, const QString& message);

    static inline QtMessageHandler s_log = nullptr;
};

} // namespace driftbox
