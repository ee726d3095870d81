#include "app/StatusIcon.h"

#include <utility>

#include <QtWidgets/QSystemTrayIcon>

// Private: no public call tells the toolkit which kind of icon to make.
#include <private/qguiapplication_p.h>
#include <qpa/qplatformtheme.h>

namespace driftbox {

namespace {

/// A theme without support for notifiers, so that the toolkit creates a tray window. The desktop's
/// own theme must not be queried: it caches its first answer.
class ThemeWithoutNotifiers final : public QPlatformTheme
{
public:
    ThemeWithoutNotifiers()
        : m_theme(std::exchange(QGuiApplicationPrivate::platform_theme, this))
    {
    }
    ~ThemeWithoutNotifiers() override { QGuiApplicationPrivate::platform_theme = m_theme; }
    Q_DISABLE_COPY_MOVE(ThemeWithoutNotifiers)

    [[nodiscard]] QPlatformSystemTrayIcon* createPlatformSystemTrayIcon() const override
    {
        return nullptr;
    }

private:
    QPlatformTheme* m_theme;
};

} // namespace

std::unique_ptr<QSystemTrayIcon> makeStatusIcon(StatusPlace place)
{
    if (place == StatusPlace::notifiers)
        return std::make_unique<QSystemTrayIcon>();
    const ThemeWithoutNotifiers theme;
    return std::make_unique<QSystemTrayIcon>();
}

} // namespace driftbox
