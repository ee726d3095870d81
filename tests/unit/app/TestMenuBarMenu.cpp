#include "support/main/TestMain.h"
#include "unit/app/FakeDesktop.h"

#include "app/AppCoordinator.h"
#include "app/MenuBarMenu.h"
#include "clipboard/ClipboardViewModel.h"
#include "core/AppConfig.h"
#include "ui/theme/Symbols.h"

#include <memory>

#include <QtCore/QTimer>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

using namespace driftbox;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

class TestMenuBarMenu : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_desktop = std::make_unique<FakeDesktop>();
        m_coordinator = std::make_unique<AppCoordinator>(m_desktop->services());
        m_menu = std::make_unique<MenuBarMenu>(m_coordinator->settings());
    }

    void cleanup()
    {
        m_menu.reset();
        m_coordinator.reset();
        m_desktop.reset();
    }

    void entriesAreInOrder()
    {
        const QStringList expected = {u"Open Drift Box"_s,
                                      u"Double-tap ⌃ Control to summon"_s,
                                      u"---"_s,
                                      u"Open Markdown…"_s,
                                      u"Settings…"_s,
                                      u"Send Feedback…"_s,
                                      u"Clear Unpinned History"_s,
                                      u"---"_s,
                                      u"Quit Drift Box"_s};
        QStringList texts;
        const auto entries = m_menu->actions();
        for (const QAction* entry : entries)
            texts << (entry->isSeparator() ? u"---"_s : entry->text());
        QCOMPARE(texts, expected);
        for (const QAction* entry : entries)
            QCOMPARE(!entry->icon().isNull(), !entry->isSeparator() && entry->isEnabled());
        QCOMPARE(action(u"Settings…"_s).shortcut(), QKeySequence(Qt::CTRL | Qt::Key_Comma));
        QCOMPARE(action(u"Quit Drift Box"_s).shortcut(), QKeySequence(Qt::CTRL | Qt::Key_Q));
        QVERIFY(!entries.at(1)->isEnabled());
    }

    void entriesHaveTheirSymbols_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("symbol");
        const auto row = [](const QString& text, const QString& symbol) {
            QTest::newRow(qPrintable(symbol)) << text << symbol;
        };
        row(u"Open Drift Box"_s, u"bolt.fill"_s);
        row(u"Open Markdown…"_s, u"doc.text"_s);
        row(u"Settings…"_s, u"gearshape"_s);
        row(u"Send Feedback…"_s, u"envelope"_s);
        row(u"Clear Unpinned History"_s, u"trash"_s);
        row(u"Quit Drift Box"_s, u"power"_s);
    }
    void entriesHaveTheirSymbols()
    {
        QFETCH(const QString, text);
        QFETCH(const QString, symbol);
        const auto outline = [](const QIcon& icon) {
            return icon.pixmap(64).toImage().convertToFormat(QImage::Format_Alpha8);
        };
        QCOMPARE(outline(action(text).icon()),
                 outline(Symbols::icon(symbol, {.size = 15, .color = Qt::black})));
    }

    void hintFollowsTheSettingsImmediately()
    {
        const QAction& hint = *m_menu->actions().at(1);
        AppSettings& settings = m_coordinator->settings();
        settings.setHotkeyEnabled(false);
        QCOMPARE(hint.text(), u"Hotkey disabled"_s);
        settings.setHotkeyModifier(HotkeyModifier::command);
        QCOMPARE(hint.text(), u"Hotkey disabled"_s);
        settings.setHotkeyEnabled(true);
        QCOMPARE(hint.text(), u"Double-tap ⌘ Command to summon"_s);
        settings.setHotkeyModifier(HotkeyModifier::option);
        QCOMPARE(hint.text(), u"Double-tap ⌥ Option to summon"_s);
    }

    void entriesDoNothingWithoutARunningCoordinator()
    {
        for (QAction* entry : m_menu->actions().mid(0, 7))
            entry->trigger();
        QVERIFY(m_desktop->floatingSurfaces.surfaces.empty());
        QVERIFY(m_desktop->documentOpener.opened.isEmpty());
    }

    void openEntryTogglesThePanel()
    {
        start();
        QTest::ignoreMessage(QtInfoMsg, "Panel show: captured target nil pid -1");
        QTest::ignoreMessage(QtInfoMsg, "Panel shown");
        choose(u"Open Drift Box"_s);
        QVERIFY(m_coordinator->panelAnimator().visible());
        choose(u"Open Drift Box"_s);
        QVERIFY(!m_coordinator->panelAnimator().visible());
    }

    void feedbackOpensThePageInTheBrowser()
    {
        start();
        choose(u"Send Feedback…"_s);
        QCOMPARE(m_desktop->documentOpener.opened, QList{AppConfig::feedbackURL()});

        m_desktop->documentOpener.outcome = Error{u"No program opens it"_s};
        QTest::ignoreMessage(QtCriticalMsg,
                             "The feedback page cannot be opened: No program opens it");
        choose(u"Send Feedback…"_s);
    }

    void clearingKeepsPinnedItems()
    {
        start();
        for (const auto& text : {u"pinned"_s, u"unpinned"_s}) {
            m_desktop->pasteboard.copy({.text = text});
            m_desktop->clock.advance(500ms);
        }
        ClipboardViewModel& history = m_coordinator->clipboardVM();
        history.togglePin(history.items().back());
        choose(u"Clear Unpinned History"_s);
        QCOMPARE(history.items().size(), size_t(1));
        choose(u"Clear Unpinned History"_s);
        QCOMPARE(history.items().front().textContent, u"pinned"_s);
    }

    void shortcutsWorkWhileTheMenuIsOpen()
    {
        const QSignalSpy settings(&action(u"Settings…"_s), &QAction::triggered);
        for (const auto* missing : {"setting window masks", "raise()", "grabbing the keyboard"})
            QTest::ignoreMessage(QtWarningMsg,
                                 QByteArray("This plugin does not support ") + missing);
        m_menu->popup({});
        QVERIFY(QTest::qWaitForWindowExposed(m_menu.get()));
        QWindow* window = m_menu->windowHandle();
        QTest::keyClick(window, Qt::Key_Comma);
        QTest::keyClick(window, Qt::Key_X, Qt::ControlModifier);
        QCOMPARE(settings.count(), 0);
        QVERIFY(m_menu->isVisible());
        QTest::keyClick(window, Qt::Key_Comma, Qt::ControlModifier);
        QCOMPARE(settings.count(), 1);
        QVERIFY(!m_menu->isVisible());
    }

    void quitEntryEndsTheProgram()
    {
        QTimer::singleShot(0, this, [this] { choose(u"Quit Drift Box"_s); });
        QCOMPARE(QApplication::exec(), 0);
    }

private:
    void start()
    {
        QTest::ignoreMessage(QtInfoMsg, "Monitor started");
        QTest::ignoreMessage(QtInfoMsg, "Hotkey monitors installed");
        m_coordinator->start();
    }

    [[nodiscard]] QAction& action(const QString& text) const
    {
        const auto entries = m_menu->actions();
        const auto found =
            std::ranges::find_if(entries, [&](const QAction* e) { return e->text() == text; });
        if (found == entries.end())
            qFatal("There is no such entry");
        return **found;
    }
    void choose(const QString& text) const { action(text).trigger(); }

    std::unique_ptr<FakeDesktop> m_desktop;
    std::unique_ptr<AppCoordinator> m_coordinator;
    std::unique_ptr<MenuBarMenu> m_menu;
};

DRIFTBOX_TEST(TestMenuBarMenu, QApplication)
#include "TestMenuBarMenu.moc"
