#include "markdown/webengine/EngineLogFilter.h"

#include <atomic>
#include <cstring>

#include <QtCore/QString>

namespace driftbox {

namespace {

std::atomic<QtMessageHandler> programsLog = nullptr;
std::atomic<bool> isStarting = false;

} // namespace

EngineLogFilter::EngineLogFilter()
{
    isStarting = true;
    programsLog = qInstallMessageHandler(nullptr);
    qInstallMessageHandler(&EngineLogFilter::handle);
}

EngineLogFilter::~EngineLogFilter()
{
    qInstallMessageHandler(programsLog);
}

void EngineLogFilter::startIsOver()
{
    isStarting = false;
}

void EngineLogFilter::handle(QtMsgType type, const QMessageLogContext& context,
                             const QString& message)
{
    // The program's own lines have categories of their own.
    const char* category = context.category != nullptr ? context.category : "default";
    const bool isTheEngines =
        std::strcmp(category, "default") == 0 || std::strncmp(category, "qt.webengine", 12) == 0;
    const bool isFailure = type == QtCriticalMsg || type == QtFatalMsg;
    const bool isNoise = isTheEngines && !isFailure &&
                         (isStarting || message.startsWith(u"No suitable graphics backend found"));
    const QtMessageHandler log = programsLog;
    if (log != nullptr && !isNoise)
        log(type, context, message);
}

} // namespace driftbox
