#include "platform/desktop/TerminationSignals.h"

#include <atomic>
#include <cerrno>
#include <csignal>

#include <fcntl.h>
#include <unistd.h>

namespace driftbox {

namespace {

std::atomic<int> writeEnd{-1};

// Little is allowed in a handler of signals; a pipe wakes the event loop up.
void passOn(int /*signal*/)
{
    constexpr char anything = 0;
    const int error = errno; // of whatever was interrupted
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

// A program that is to outlive its terminal is started with such signals ignored.
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
        m_heard.push_back(signal);
        setHandler(signal, &passOn, SA_RESTART | static_cast<int>(SA_RESETHAND));
    }
}

TerminationSignals::~TerminationSignals()
{
    for (const int signal : m_heard)
        setHandler(signal, SIG_DFL, 0);
    writeEnd = -1;
}

} // namespace driftbox
