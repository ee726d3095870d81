#include "support/WindowManager.h"

#include "support/X11Client.h"

#include <csignal>
#include <cstdlib>
#include <memory>
#include <string_view>

#include <QtCore/QDeadlineTimer>
#include <QtCore/QFile>
#include <QtCore/QThread>

#include <unistd.h>
#include <xcb/xcb.h>

using namespace Qt::StringLiterals;

namespace driftbox {

namespace {

constexpr int startTimeoutMs = 12'000;
constexpr int maxAttempts = 4;
constexpr int firstProbeTimeoutMs = 400;

struct Free
{
    void operator()(void* memory) const { std::free(memory); }
};
template <typename Reply>
using Answer = std::unique_ptr<Reply, Free>;

constexpr auto i3Configuration = R"(# i3 config file (v4)
font pango:monospace 8
focus_follows_mouse no
)";

} // namespace

WindowManager::WindowManager(const QString& name)
{
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"HOME"_s, m_home.path());
    for (const auto* variable :
         {"XDG_CONFIG_HOME", "XDG_CACHE_HOME", "XDG_DATA_HOME", "XDG_RUNTIME_DIR"})
        environment.insert(QString::fromLatin1(variable), m_home.path());
    environment.insert(u"KWIN_COMPOSE"_s, u"N"_s);
    environment.remove(u"DBUS_SESSION_BUS_ADDRESS"_s);
    m_process.setProcessEnvironment(environment);
    m_process.setProcessChannelMode(QProcess::MergedChannels);
    m_process.setStandardOutputFile(m_home.filePath(u"log"_s));
    // A process group, so that its child processes, such as its message bus, can be ended with it.
    m_process.setChildProcessModifier([] { setpgid(0, 0); });

    QFile file(m_home.filePath(u"i3.config"_s));
    if (file.open(QFile::WriteOnly))
        file.write(i3Configuration);
    file.close();

    // Occasionally a window manager crashes on startup or never manages windows.
    for (int attempt = 0; attempt < maxAttempts; ++attempt) {
        start(argumentsFor(name));
        if (becomesReady())
            return;
        crash();
    }
    QFile log(m_home.filePath(u"log"_s));
    const QByteArray output = log.open(QFile::ReadOnly) ? log.readAll() : QByteArray();
    qFatal("%s does not manage windows; its output: %s", qPrintable(name), output.constData());
}

void WindowManager::start(const QStringList& command)
{
    m_process.start(command.first(), command.mid(1));
    if (!m_process.waitForStarted(startTimeoutMs))
        qFatal("%s does not start", qPrintable(command.first()));
    m_group = static_cast<pid_t>(m_process.processId());
}

WindowManager::~WindowManager()
{
    signalAll(SIGTERM);
    if (!m_process.waitForFinished(2'000))
        crash();
    signalAll(SIGKILL);
    waitUntilGone();
}

void WindowManager::freeze()
{
    signalAll(SIGSTOP);
}

void WindowManager::thaw()
{
    signalAll(SIGCONT);
}

void WindowManager::crash()
{
    signalAll(SIGKILL);
    m_process.waitForFinished();
    waitUntilGone();
}

// The server notices the end only later. Until then the next window manager would wait for this one
// to give up the selection, some of them forever.
void WindowManager::waitUntilGone()
{
    constexpr std::string_view name = "WM_S0";
    xcb_connection_t* xcb = xcb_connect(nullptr, nullptr);
    const Answer<xcb_intern_atom_reply_t> selection(
        xcb_intern_atom_reply(xcb, xcb_intern_atom(xcb, false, name.size(), name.data()), nullptr));
    const QDeadlineTimer deadline(startTimeoutMs);
    while (selection && !deadline.hasExpired()) {
        const Answer<xcb_get_selection_owner_reply_t> owner(xcb_get_selection_owner_reply(
            xcb, xcb_get_selection_owner(xcb, selection->atom), nullptr));
        if (!owner || owner->owner == XCB_NONE)
            break;
        QThread::msleep(5); // poll interval
    }
    xcb_disconnect(xcb);
}

void WindowManager::signalAll(int signal) const
{
    if (m_group > 0)
        kill(-m_group, signal);
}

QStringList WindowManager::argumentsFor(const QString& name) const
{
    const QStringList onBus = {u"dbus-run-session"_s, u"--"_s, name, u"--replace"_s};
    if (name == u"xfwm4")
        return onBus + QStringList{u"--compositor=off"_s};
    if (name == u"kwin_x11")
        return onBus + QStringList{u"--no-kactivities"_s};
    if (name == u"i3")
        return {name, u"--replace"_s, u"-c"_s, m_home.filePath(u"i3.config"_s)};
    return {name, u"--replace"_s, u"--sm-disable"_s};
}

// Window managers announce themselves before they manage windows, so probe windows are shown until
// one gets the focus: repeatedly, because one may be shown too early, and with a growing timeout,
// because the machine may be busy.
bool WindowManager::becomesReady()
{
    const QDeadlineTimer deadline(startTimeoutMs);
    for (int timeoutMs = firstProbeTimeoutMs; !deadline.hasExpired(); timeoutMs *= 2) {
        const X11Client probe;
        const QDeadlineTimer probeDeadline(timeoutMs);
        while (!probeDeadline.hasExpired()) {
            if (probe.hasFocus())
                return true;
            if (m_process.waitForFinished(0))
                return false;
            QThread::msleep(5); // poll interval
        }
    }
    return false;
}

} // namespace driftbox
