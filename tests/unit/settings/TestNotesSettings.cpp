#include "support/main/TestMain.h"
#include "unit/settings/SettingsDesk.h"

#include "settings/NotesSettings.h"

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

using namespace driftbox;
using namespace Qt::StringLiterals;

class TestNotesSettings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theColorIsThatOfTheSettings()
    {
        SettingsDesk desk;
        NotesSettings page(desk.services);
        const QSignalSpy changed(&page, &NotesSettings::defaultColorChanged);
        QCOMPARE(page.defaultColor(), NoteColor::yellow);
        page.setDefaultColor(NoteColor::pink);
        QCOMPARE(desk.settings.noteDefaultColor(), NoteColor::pink);
        QCOMPARE(page.defaultColor(), NoteColor::pink);
        QCOMPARE(changed.count(), 1);
        desk.settings.setNoteDefaultColor(NoteColor::green);
        QCOMPARE(page.defaultColor(), NoteColor::green);
        QCOMPARE(changed.count(), 2);
    }

    void theSameColorIsNotStoredAgain()
    {
        SettingsDesk desk;
        NotesSettings page(desk.services);
        page.setDefaultColor(NoteColor::yellow);
        QVERIFY(desk.defaults.values.isEmpty());
    }

    void allNotesAreClosedAtOnce()
    {
        SettingsDesk desk;
        const NotesSettings page(desk.services);
        page.closeAllNotes();
        QCOMPARE(desk.notesClosed, 1);
    }
};

DRIFTBOX_TEST(TestNotesSettings, QCoreApplication)
#include "TestNotesSettings.moc"
