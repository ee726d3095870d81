#include "markdown/webengine/EngineChatter.h"

#include <cstring>
#include <utility>

#include <QtCore/QString>

namespace driftbox {

EngineChatter::EngineChatter()
{
    s_log = qInstallMessageHandler(&EngineChatter::handle);
}

EngineChatter::~EngineChatter()
{
    qInstallMessageHandler(std::exchange(s_log, nullptr));
}

void EngineChatter::handle(QtMsgType type, const QMessageLogContext& context,
                           const QString& message)
{
    // The program's own lines have categories of their own.
    const char* category = context.category != nullptr ? context.category : "default";
    const bool isTheEngines =
        std::strcmp(category, "default") == 0 || std::strncmp(category, "qt.webengine", 12) == 0;
    const bool isFailure = type == QtCriticalMsg || type == QtFatalMsg;
    if (s_log != nullptr && (isFailure || !isTheEngines))
        s_log(type, context, message);
}

} // namespace driftbox
