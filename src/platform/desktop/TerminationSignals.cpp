#include "platform/desktop/TerminationSignals.h"

#include <atomic>
#include <cerrno>
#include <csignal>

#include <fcntl.h>
#include <unistd.h>

namespace driftbox {

namespace {

std::atomic<int> writeEnd{-1};

// Only async-signal-safe calls are allowed here; the pipe wakes the event loop.
void notifyEventLoop(int /*signal*/)
{
    constexpr char anything = 0;
    const int error = errno; // belongs to the interrupted code
    static_cast<void>(!write(writeEnd, &anything, sizeof anything));
    errno = error;
}

void setHandler(int signal, void (*handler)(int), int flags)
{
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = flags;
    sigemptyset(&action.sa_mask);
    sigaction(signal, &action, nullptr);
}

// Programs meant to outlive their terminal are started with these signals ignored.
bool isIgnored(int signal)
{
    struct sigaction action = {};
    sigaction(signal, nullptr, &action);
    return action.sa_handler == SIG_IGN;
}

} // namespace

TerminationSignals::Pipe::Pipe()
{
    if (pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        qFatal("There are no file descriptors left");
}

TerminationSignals::Pipe::~Pipe()
{
    for (const int end : ends)
        close(end);
}

TerminationSignals::TerminationSignals(QObject* parent)
    : QObject(parent)
    , m_notifier(m_pipe.ends[0], QSocketNotifier::Read)
{
    connect(&m_notifier, &QSocketNotifier::activated, this, [this] {
        m_notifier.setEnabled(false);
        Q_EMIT received();
    });
    writeEnd = m_pipe.ends[1];
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        if (isIgnored(signal))
            continue;
        m_handledSignals.push_back(signal);
        setHandler(signal, &notifyEventLoop, SA_RESTART | static_cast<int>(SA_RESETHAND));
    }
}

TerminationSignals::~TerminationSignals()
{
    for (const int signal : m_handledSignals)
        setHandler(signal, SIG_DFL, 0);
    writeEnd = -1;
}

} // namespace driftbox
