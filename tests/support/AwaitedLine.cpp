#include "support/AwaitedLine.h"

namespace driftbox {

namespace {

AwaitedLine* theLine = nullptr; // message handlers are plain functions

} // namespace

AwaitedLine::AwaitedLine(const QString& beginning)
    : m_beginning(beginning)
    , m_previousHandler(qInstallMessageHandler(&handle))
{
    Q_ASSERT(!theLine);
    theLine = this;
}

AwaitedLine::~AwaitedLine()
{
    qInstallMessageHandler(m_previousHandler);
    theLine = nullptr;
}

void AwaitedLine::handle(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    if (message.startsWith(theLine->m_beginning))
        ++theLine->m_count;
    else
        theLine->m_previousHandler(type, context, message);
}

} // namespace driftbox
