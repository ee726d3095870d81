#include "notes/StickyNoteViewModel.h"
#include "support/main/TestMain.h"
#include "unit/notes/NotesDesk.h"

#include <optional>

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

using namespace driftbox;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

class TestNoteManager : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_desk.emplace(); }
    void cleanup() { m_desk.reset(); }

    // Start

    void savedNotesAreListedButClosedAtLaunch()
    {
        desk().openSaved(u"one"_s);
        desk().openSaved(u"two"_s);
        const std::vector<StickyNote> before = manager().notes();
        desk().restart();
        QVERIFY(manager().notes() == before);
        QTest::ignoreMessage(QtInfoMsg, "Loaded 2 saved note(s); windows left closed");
        manager().restore();
        QCOMPARE(desk().windows.count, 0);
        QCOMPARE(desk().keys.monitorCount(), size_t(1));

        QTest::ignoreMessage(QtInfoMsg, "Loaded 2 saved note(s); windows left closed");
        manager().restore();
        QCOMPARE(desk().keys.monitorCount(), size_t(1));
    }

    void firstLaunchLogsNothing()
    {
        manager().restore();
        QVERIFY(manager().notes().empty());
    }

    // Making notes

    void newNoteIsAnOpenDraftInFront()
    {
        desk().settings.setNoteDefaultColor(NoteColor::pink);
        manager().createNote(u"first"_s);
        const QSignalSpy notes(&manager(), &NoteManager::notesChanged);
        const QSignalSpy windows(&manager(), &NoteManager::windowsChanged);
        manager().newBlankNote();

        QCOMPARE(manager().notes().size(), size_t(2));
        const StickyNote& note = manager().notes().front();
        const Instant now = desk().clock.now();
        const StickyNote expected{.id = note.id,
                                  .textContent = u""_s,
                                  .color = NoteColor::pink,
                                  .frame = {1134, 609, 240, 200},
                                  .createdAt = now,
                                  .updatedAt = now};
        QVERIFY(note == expected);
        QVERIFY(manager().isOpen(note.id));
        QVERIFY(desk().lastSurface().isKey());
        QCOMPARE(desk().lastSurface().frame(), note.frame.toRect());
        QCOMPARE(manager().notes().back().textContent, u"first"_s);
        QCOMPARE(notes.count(), 1);
        QCOMPARE(windows.count(), 1);
        QCOMPARE(desk().files.writeCount(), 0);
    }

    void firstAndNinthNotesAreInTheCorner()
    {
        std::vector<NoteFrame> frames;
        for (int count = 0; count < 9; ++count) {
            manager().newBlankNote();
            frames.push_back(manager().notes().front().frame);
        }
        QCOMPARE(frames[0], (NoteFrame{1160, 635, 240, 200}));
        QCOMPARE(frames[1], (NoteFrame{1134, 609, 240, 200}));
        QCOMPARE(frames[2], (NoteFrame{1108, 583, 240, 200}));
        QCOMPARE(frames[8], frames[0]);
    }

    void imageNoteWritesItsFileButNoManifest()
    {
        const QByteArray bytes = picture({1000, 500});
        manager().createNote(bytes);
        const StickyNote& note = manager().notes().front();
        QCOMPARE(note.kind, StickyNote::Kind::image);
        QVERIFY(!note.textContent);
        QCOMPARE(note.imageFileName, note.id.text() + u".png"_s);
        QCOMPARE(note.frame.toRect().size(), QSizeF(520, 356));
        QCOMPARE(desk().files.files(), QStringList(desk().imagePath(note.id)));
        QCOMPARE(desk().files.read(desk().imagePath(note.id)), bytes);
        QVERIFY(manager().isOpen(note.id));

        manager().createNote(picture({100, 100}));
        QCOMPARE(manager().notes().front().frame.toRect().size(), QSizeF(300, 396));
    }

    void undecodableBytesStillMakeAnImageNote()
    {
        manager().createNote(QByteArray("no image"));
        const StickyNote& note = manager().notes().front();
        QCOMPARE(note.kind, StickyNote::Kind::image);
        QCOMPARE(note.frame.toRect().size(), QSizeF(240, 200));
        QCOMPARE(desk().files.read(desk().imagePath(note.id)), QByteArray("no image"));
    }

    void windowHeightIsLimitedForTallImages()
    {
        manager().createNote(picture({1, 30'000}));
        QVERIFY(manager().notes().front().frame.height > 9e6);
        QCOMPARE(desk().lastSurface().frame().size(), QSizeF(300, 2000));
    }

    // Changes

    void onlySavedNotesReachTheManifest()
    {
        StickyNoteViewModel& note = desk().open(u"draft"_s);
        note.setText(u"still a draft"_s);
        note.setColor(NoteColor::blue);
        note.updateFrame({1, 2, 300, 300});
        QCOMPARE(desk().manifestWrites(), 0);
        QCOMPARE(manager().notes().front().textContent, u"still a draft"_s);

        note.toggleSaved();
        QCOMPARE(desk().manifestWrites(), 1);
        note.setText(u"s"_s);
        QCOMPARE(desk().manifestWrites(), 2);
        QVERIFY(desk().manifest() == manager().notes());
    }

    void unsavingRemovesTheNoteFromTheManifestAndKeepsTheImage()
    {
        manager().createNote(picture({10, 10}));
        StickyNoteViewModel& note = desk().windows.last->viewModel;
        note.toggleSaved();
        QCOMPARE(desk().manifest().size(), size_t(1));
        note.toggleSaved();
        QVERIFY(desk().manifest().empty());
        QVERIFY(desk().files.exists(desk().imagePath(note.note().id)));
        QCOMPARE(manager().notes().size(), size_t(1));
    }

    void savingAgainMovesTheNoteToTheFrontOfTheManifest()
    {
        StickyNoteViewModel& first = desk().openSaved(u"first"_s);
        desk().openSaved(u"second"_s);
        QCOMPARE(desk().manifest().back().textContent, u"first"_s);
        first.toggleSaved();
        first.toggleSaved();
        QCOMPARE(desk().manifest().front().textContent, u"first"_s);
        QCOMPARE(manager().notes().back().textContent, u"first"_s);
    }

    // Closing and deleting

    void closingADraftDeletesItWithItsImage()
    {
        manager().createNote(picture({10, 10}));
        const StickyNoteId id = manager().notes().front().id;
        manager().close(id);
        QVERIFY(manager().notes().empty());
        QVERIFY(!manager().isOpen(id));
        QVERIFY(desk().files.files().isEmpty());
        QCOMPARE(desk().manifestWrites(), 0);
        NotesDesk::settle();
        QCOMPARE(desk().windows.count, 0);
    }

    void draftsEndWithTheManager()
    {
        manager().createNote(picture({10, 10}));
        const QString draft = desk().imagePath(manager().notes().front().id);
        manager().createNote(picture({10, 10}));
        desk().windows.last->viewModel.toggleSaved();
        const QString saved = desk().imagePath(manager().notes().front().id);
        desk().manager.reset();
        QVERIFY(!desk().files.exists(draft));
        QVERIFY(desk().files.exists(saved));
        QCOMPARE(desk().manifest().size(), size_t(1));
    }

    void closingASavedNoteOnlyHidesIt()
    {
        const StickyNoteId id = desk().openSaved(u"kept"_s).note().id;
        FakeFloatingSurface& surface = desk().lastSurface();
        manager().close(id);
        QVERIFY(!surface.isVisible());
        QCOMPARE(manager().notes().size(), size_t(1));
        QCOMPARE(desk().manifest().size(), size_t(1));
        QVERIFY(!manager().isOpen(id));
    }

    void closingAnUnsavedNoteDeletesIt()
    {
        StickyNoteViewModel& note = desk().openSaved(u"gone"_s);
        note.toggleSaved();
        note.close();
        QVERIFY(manager().notes().empty());
        QVERIFY(desk().manifest().empty());
    }

    void noteMayCloseItselfFromItsOwnControl()
    {
        StickyNoteViewModel& note = desk().open(u"a"_s);
        note.close();
        note.setText(u"typed while it goes away"_s);
        QVERIFY(manager().notes().empty());
        QCOMPARE(desk().windows.count, 1);
        NotesDesk::settle();
        QCOMPARE(desk().windows.count, 0);
    }

    void deletingDeletesASavedNoteToo()
    {
        StickyNoteViewModel& note = desk().openSaved(u"gone"_s);
        manager().remove(note.note().id);
        QVERIFY(manager().notes().empty());
        QVERIFY(desk().manifest().empty());
    }

    void closedNoteCanBeDeletedByTheIdInTheList()
    {
        desk().openSaved(u"a"_s);
        desk().openSaved(u"b"_s);
        manager().closeAll();
        manager().remove(manager().notes().front().id);
        QCOMPARE(manager().notes().size(), size_t(1));
        QCOMPARE(manager().notes().front().textContent, u"a"_s);
        QVERIFY(desk().manifest() == manager().notes());
    }

    void closingAllKeepsTheSavedNotes()
    {
        desk().open(u"draft"_s);
        desk().openSaved(u"one"_s);
        desk().open(u"another draft"_s);
        desk().openSaved(u"two"_s);
        manager().closeAll();
        QCOMPARE(manager().notes().size(), size_t(2));
        QCOMPARE(manager().notes()[0].textContent, u"two"_s);
        QCOMPARE(manager().notes()[1].textContent, u"one"_s);
        NotesDesk::settle();
        QCOMPARE(desk().windows.count, 0);
    }

private:
    NotesDesk& desk() { return *m_desk; }
    NoteManager& manager() { return *m_desk->manager; }

    std::optional<NotesDesk> m_desk;
};

DRIFTBOX_TEST(TestNoteManager, QGuiApplication)
#include "TestNoteManager.moc"
