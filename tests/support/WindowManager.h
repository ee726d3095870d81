#pragma once

#include <QtCore/QProcess>
#include <QtCore/QString>
#include <sys/types.h>

#include <QtCore/QTemporaryDir>

namespace driftbox {

/// A real window manager on the X server that DISPLAY names; it ends with this object.
class WindowManager
{
public:
    /// `name` is openbox, xfwm4, i3 or kwin_x11. Takes over from one that runs already. Returns
    /// once it manages new windows; stops the test program when it does not come up.
    explicit WindowManager(const QString& name);
    ~WindowManager();
    WindowManager(const WindowManager&) = delete;
    WindowManager& operator=(const WindowManager&) = delete;

    void freeze();
    void thaw();
    /// Ends it without a chance to tidy up.
    void crash();

private:
    void signalAll(int signal) const;
    [[nodiscard]] QStringList argumentsFor(const QString& name) const;
    void start(const QStringList& command);
    [[nodiscard]] bool becomesReady();
    static void waitUntilGone();

    QTemporaryDir m_home;
    QProcess m_process;
    pid_t m_group = 0; ///< everything it has started
};

} // namespace driftbox
