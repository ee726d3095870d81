#pragma once

#include <QtCore/QProcess>
#include <QtCore/QString>
#include <sys/types.h>

#include <QtCore/QTemporaryDir>

namespace driftbox {

/// A real window manager on the X server in DISPLAY. The process ends with this object.
class WindowManager
{
public:
    /// `name` is openbox, xfwm4, i3 or kwin_x11. Replaces a running window manager. Returns once it
    /// manages new windows; aborts the test program if it does not.
    explicit WindowManager(const QString& name);
    ~WindowManager();
    WindowManager(const WindowManager&) = delete;
    WindowManager& operator=(const WindowManager&) = delete;

    void freeze();
    void thaw();
    /// Kills it without letting it clean up.
    void crash();

private:
    void signalAll(int signal) const;
    [[nodiscard]] QStringList argumentsFor(const QString& name) const;
    void start(const QStringList& command);
    [[nodiscard]] bool becomesReady();
    static void waitUntilGone();

    QTemporaryDir m_home;
    QProcess m_process;
    pid_t m_group = 0; ///< the process group
};

} // namespace driftbox
