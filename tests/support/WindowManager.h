#pragma once

#include <QtCore/QProcess>
#include <QtCore/QString>
#include <QtCore/QTemporaryDir>

namespace driftbox {

/// A real window manager on the X server that DISPLAY names; it ends with this object.
class WindowManager
{
public:
    /// `name` is openbox, xfwm4, i3 or kwin_x11. Takes over from one that runs already. Returns
    /// once it manages new windows; stops the test program when it does not come up.
    explicit WindowManager(const QString& name = QStringLiteral("openbox"));
    ~WindowManager();
    WindowManager(const WindowManager&) = delete;
    WindowManager& operator=(const WindowManager&) = delete;

    /// Whether the program is on this machine.
    [[nodiscard]] static bool isInstalled(const QString& name);

private:
    [[nodiscard]] QStringList argumentsFor(const QString& name) const;
    void waitUntilReady() const;

    QTemporaryDir m_home;
    QProcess m_process;
};

} // namespace driftbox
