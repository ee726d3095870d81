#include "platform/wayland/clipboard/ClipboardThread.h"

#include "platform/wayland/clipboard/DataControlClipboard.h"

#include <csignal>

#include <pthread.h>

namespace driftbox {

namespace {

// A program that closes its pipe early must not end this one.
void blockPipeSignal()
{
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGPIPE);
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);
}

} // namespace

std::unique_ptr<ClipboardThread> ClipboardThread::start(std::chrono::milliseconds deadline)
{
    std::unique_ptr<ClipboardThread> self(new ClipboardThread);
    self->m_thread.setObjectName(QStringLiteral("clipboard"));
    self->m_thread.start();
    QObject context;
    context.moveToThread(&self->m_thread);
    QMetaObject::invokeMethod(
        &context,
        [&] {
            blockPipeSignal();
            self->m_clipboard = DataControlClipboard::open(deadline).release();
            context.moveToThread(nullptr);
        },
        Qt::BlockingQueuedConnection);
    if (self->m_clipboard == nullptr)
        return nullptr;
    QObject::connect(&self->m_thread, &QThread::finished, self->m_clipboard, &QObject::deleteLater);
    return self;
}

ClipboardThread::~ClipboardThread()
{
    m_thread.quit();
    m_thread.wait();
}

} // namespace driftbox
