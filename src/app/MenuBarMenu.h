#pragma once

#include <QtCore/QString>
#include <QtWidgets/QMenu>

namespace driftbox {

class AppSettings;

/// The menu of the program's status area item, which offers everything that the double tap and the
/// settings window offer. Its entries act on the running coordinator and have no effect without
/// one. Main thread only.
class MenuBarMenu final : public QMenu
{
    Q_OBJECT

public:
    /// The hint reflects `settings`, which must outlive the menu.
    explicit MenuBarMenu(const AppSettings& settings);

protected:
    /// The entries' shortcuts work while the menu is open.
    void keyPressEvent(QKeyEvent* event) override;

private:
    void updateHint();

    const AppSettings& m_settings;
    QAction* m_hint = nullptr;
};

/// A short description of how to open the panel.
[[nodiscard]] QString hotkeyHint(const AppSettings& settings);

} // namespace driftbox
