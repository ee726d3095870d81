#include "support/AwaitedLine.h"

namespace driftbox {

namespace {

AwaitedLine* theLine = nullptr; // handlers of messages are plain functions

} // namespace

AwaitedLine::AwaitedLine(const QString& beginning)
    : m_beginning(beginning)
    , m_others(qInstallMessageHandler(&handle))
{
    Q_ASSERT(!theLine);
    theLine = this;
}

AwaitedLine::~AwaitedLine()
{
    qInstallMessageHandler(m_others);
    theLine = nullptr;
}

void AwaitedLine::handle(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    if (message.startsWith(theLine->m_beginning))
        ++theLine->m_count;
    else
        theLine->m_others(type, context, message);
}

} // namespace driftbox
