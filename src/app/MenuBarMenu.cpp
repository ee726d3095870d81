#include "app/MenuBarMenu.h"

#include "app/AppCoordinator.h"
#include "clipboard/ClipboardViewModel.h"
#include "core/AppSettings.h"
#include "settings/ModifierName.h"
#include "ui/theme/Symbols.h"

#include <algorithm>

#include <QtCore/QCoreApplication>
#include <QtGui/QKeyEvent>

using namespace Qt::StringLiterals;

namespace driftbox {

namespace {

// These colors are readable on both light and dark menus, which the desktop may draw in its own
// colors.
constexpr QColor plainColor(0x80, 0x80, 0x88);
constexpr QColor destructiveColor(0xe0, 0x3e, 0x3e);
constexpr int symbolSize = 15;

QIcon entryIcon(const QString& symbol, const QColor& color = plainColor)
{
    return Symbols::icon(symbol, {.size = symbolSize, .color = color});
}

/// Wraps `action` into a callback that passes it the running coordinator, if there is one.
template <typename Action>
auto withCoordinator(Action action)
{
    return [action] {
        if (AppCoordinator* coordinator = AppCoordinator::shared())
            action(*coordinator);
    };
}

} // namespace

MenuBarMenu::MenuBarMenu(const AppSettings& settings)
    : m_settings(settings)
{
    setAccessibleName(u"Drift Box"_s);
    addAction(entryIcon(u"bolt.fill"_s), u"Open Drift Box"_s, this,
              withCoordinator([](AppCoordinator& app) { app.togglePanel(); }));
    m_hint = addAction(QString());
    m_hint->setEnabled(false);
    addSeparator();
    addAction(entryIcon(u"doc.text"_s), u"Open Markdown…"_s, this,
              withCoordinator([](AppCoordinator& app) { app.openMarkdown(); }));
    addAction(entryIcon(u"gearshape"_s), u"Settings…"_s, Qt::CTRL | Qt::Key_Comma, this,
              withCoordinator([](AppCoordinator& app) { app.showSettings(); }));
    addAction(entryIcon(u"envelope"_s), u"Send Feedback…"_s, this,
              withCoordinator([](AppCoordinator& app) { app.sendFeedback(); }));
    addAction(entryIcon(u"trash"_s), u"Clear Unpinned History"_s, this,
              withCoordinator([](AppCoordinator& app) { app.clipboardVM().clearUnpinned(); }));
    addSeparator();
    addAction(entryIcon(u"power"_s, destructiveColor), u"Quit Drift Box"_s, Qt::CTRL | Qt::Key_Q,
              this, [] { QCoreApplication::quit(); });

    connect(&m_settings, &AppSettings::hotkeyEnabledChanged, this, &MenuBarMenu::updateHint);
    connect(&m_settings, &AppSettings::hotkeyModifierChanged, this, &MenuBarMenu::updateHint);
    updateHint();
}

void MenuBarMenu::updateHint()
{
    m_hint->setText(hotkeyHint(m_settings));
}

void MenuBarMenu::keyPressEvent(QKeyEvent* event)
{
    const QKeySequence keys(event->keyCombination());
    const auto entries = actions();
    const auto entry = std::ranges::find_if(
        entries, [&keys](const QAction* action) { return action->shortcut() == keys; });
    if (entry == entries.end())
        return QMenu::keyPressEvent(event);
    close();
    (*entry)->trigger();
}

QString hotkeyHint(const AppSettings& settings)
{
    if (!settings.hotkeyEnabled())
        return u"Hotkey disabled"_s;
    return u"Double-tap %1 to summon"_s.arg(modifierName(settings.hotkeyModifier()));
}

} // namespace driftbox
