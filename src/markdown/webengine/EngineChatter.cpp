#include "markdown/webengine/EngineChatter.h"

#include <atomic>
#include <cstring>

#include <QtCore/QString>

namespace driftbox {

namespace {

std::atomic<QtMessageHandler> programsLog = nullptr;
std::atomic<bool> isStarting = false;

} // namespace

EngineChatter::EngineChatter()
{
    isStarting = true;
    programsLog = qInstallMessageHandler(nullptr);
    qInstallMessageHandler(&EngineChatter::handle);
}

EngineChatter::~EngineChatter()
{
    qInstallMessageHandler(programsLog);
}

void EngineChatter::startIsOver()
{
    isStarting = false;
}

void EngineChatter::handle(QtMsgType type, const QMessageLogContext& context,
                           const QString& message)
{
    // The program's own lines have categories of their own.
    const char* category = context.category != nullptr ? context.category : "default";
    const bool isTheEngines =
        std::strcmp(category, "default") == 0 || std::strncmp(category, "qt.webengine", 12) == 0;
    const bool isFailure = type == QtCriticalMsg || type == QtFatalMsg;
    const bool isChatter =
        isTheEngines && !isFailure &&
        (isStarting || message.startsWith(u"No suitable graphics backend found"));
    const QtMessageHandler log = programsLog;
    if (log != nullptr && !isChatter)
        log(type, context, message);
}

} // namespace driftbox
