#include "platform/selection/PasteShortcuts.h"
#include "support/main/TestMain.h"

#include <QtTest/QTest>

using namespace driftbox;
using namespace Qt::StringLiterals;

class TestPasteShortcuts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyWindowClassHasItsShortcut_data()
    {
        QTest::addColumn<QString>("windowClass");
        QTest::addColumn<int>("shortcut");
        const auto rows = [](PasteShortcut shortcut, std::initializer_list<const char*> classes) {
            for (const char* name : classes)
                QTest::newRow(name) << QString::fromLatin1(name) << static_cast<int>(shortcut);
        };
        rows(PasteShortcut::controlV,
             {"", "Firefox", "Mousepad", "libreoffice-writer", "Stardict", "xterminator2"});
        rows(PasteShortcut::controlShiftV,
             {"Gnome-terminal", "konsole", "Xfce4-terminal", "kitty", "Alacritty",
              "org.wezfurlong.wezterm", "foot", "Tilix", "Terminator", "Lxterminal",
              "Mate-terminal", "qterminal"});
        rows(PasteShortcut::shiftInsert,
             {"XTerm", "UXTerm", "URxvt", "st", "st-256color", "Emacs"});
    }

    void everyWindowClassHasItsShortcut()
    {
        QFETCH(QString, windowClass);
        QFETCH(int, shortcut);
        QCOMPARE(static_cast<int>(pasteShortcutOf(windowClass)), shortcut);
    }
};

DRIFTBOX_TEST(TestPasteShortcuts, QCoreApplication)
#include "TestPasteShortcuts.moc"
