#include "markdown/webengine/EngineLogFilter.h"

#include <atomic>
#include <cstring>

#include <QtCore/QString>

namespace driftbox {

namespace {

std::atomic<QtMessageHandler> previousHandler = nullptr;
std::atomic<bool> isStarting = false;

} // namespace

EngineLogFilter::EngineLogFilter()
{
    isStarting = true;
    previousHandler = qInstallMessageHandler(nullptr);
    qInstallMessageHandler(&EngineLogFilter::handle);
}

EngineLogFilter::~EngineLogFilter()
{
    qInstallMessageHandler(previousHandler);
}

void EngineLogFilter::startupFinished()
{
    isStarting = false;
}

void EngineLogFilter::handle(QtMsgType type, const QMessageLogContext& context,
                             const QString& message)
{
    // The program's own messages have their own categories.
    const char* category = context.category != nullptr ? context.category : "default";
    const bool isFromEngine =
        std::strcmp(category, "default") == 0 || std::strncmp(category, "qt.webengine", 12) == 0;
    const bool isFailure = type == QtCriticalMsg || type == QtFatalMsg;
    const bool isNoise = isFromEngine && !isFailure &&
                         (isStarting || message.startsWith(u"No suitable graphics backend found"));
    const QtMessageHandler log = previousHandler;
    if (log != nullptr && !isNoise)
        log(type, context, message);
}

} // namespace driftbox
