#pragma once

#include <QtCore/QString>
#include <QtWidgets/QMenu>

namespace driftbox {

class AppSettings;

/// What the program's item in the desktop's bar offers: another road to everything that the double
/// tap and the settings window offer. Its entries act on the running coordinator and do nothing
/// where there is none. Main thread only.
class MenuBarMenu final : public QMenu
{
    Q_OBJECT

public:
    /// The hint follows `settings`, which must outlive the menu.
    explicit MenuBarMenu(const AppSettings& settings);

protected:
    /// The shortcuts of the entries work while the menu is open.
    void keyPressEvent(QKeyEvent* event) override;

private:
    void updateHint();

    const AppSettings& m_settings;
    QAction* m_hint = nullptr;
};

/// How to open the panel, in a few words.
[[nodiscard]] QString hotkeyHint(const AppSettings& settings);

} // namespace driftbox
