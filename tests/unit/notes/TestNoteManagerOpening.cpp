#include "notes/StickyNoteViewModel.h"
#include "support/main/TestMain.h"
#include "unit/notes/NotesDesk.h"

#include <optional>

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

using namespace driftbox;
using namespace Qt::StringLiterals;

class TestNoteManagerOpening : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_desk.emplace(); }
    void cleanup() { m_desk.reset(); }

    // Opening again

    void focusingAnOpenNoteRaisesIt()
    {
        const StickyNoteId id = desk().open(u"a"_s).note().id;
        FakeFloatingSurface& surface = desk().lastSurface();
        desk().open(u"b"_s);
        surface.setKey(false);
        manager().focus(id);
        QCOMPARE(surface.presentations.size(), size_t(2));
        QVERIFY(surface.isKey());
        QCOMPARE(desk().windows.count, 2);
    }

    void focusingAClosedNoteOpensItWhereItWas()
    {
        StickyNoteViewModel& note = desk().openSaved(u"a"_s);
        const StickyNoteId id = note.note().id;
        desk().lastSurface().moveByUser(QRectF(10, 20, 333, 222));
        desk().restart();
        manager().focus(id);
        QCOMPARE(desk().lastSurface().frame(), QRectF(10, 20, 333, 222));
        QCOMPARE(desk().windows.last->viewModel.text(), u"a"_s);
        QVERIFY(manager().isOpen(id));
    }

    void noteOfAMissingScreenIsRepositionedAndSavedOnlyWhenMoved()
    {
        manager().createNote(picture({1000, 500}));
        StickyNoteViewModel& note = desk().windows.last->viewModel;
        note.toggleSaved();
        const StickyNoteId id = note.note().id;
        const NoteFrame lost{5000, 100, 520, 356};
        note.updateFrame(lost);
        manager().close(id);

        const int writes = desk().manifestWrites();
        manager().focus(id);
        QCOMPARE(desk().lastSurface().frame(), QRectF(1134, 609, 240, 200));
        QCOMPARE(manager().notes().front().frame, lost);
        QCOMPARE(desk().manifestWrites(), writes);

        desk().lastSurface().moveByUser(QRectF(700, 600, 240, 200));
        QCOMPARE(desk().manifest().front().frame, (NoteFrame{700, 600, 240, 200}));

        manager().newBlankNote(); // the rescue has taken a step of the cascade
        QCOMPARE(manager().notes().front().frame, (NoteFrame{1108, 583, 240, 200}));
    }

    // Copying

    void copiedNoteIsNotCapturedAsAnEntry()
    {
        const QSignalSpy written(&desk().writer, &PasteboardWriter::written);
        desk().open(u"text"_s);
        manager().copyToClipboard(manager().notes().front().id);
        QCOMPARE(desk().pasteboard.content(), (PasteboardContent{.text = u"text"_s}));

        const QByteArray bytes = picture({4, 4});
        manager().createNote(bytes);
        const StickyNoteId id = manager().notes().front().id;
        manager().copyToClipboard(id);
        QCOMPARE(desk().pasteboard.content(), (PasteboardContent{.png = bytes}));

        desk().files.remove(desk().imagePath(id));
        manager().copyToClipboard(id);
        QVERIFY(desk().pasteboard.content().isEmpty());
        QCOMPARE(written.count(), 3);
    }

    // What goes wrong

    void unknownNotesAreIgnored()
    {
        const StickyNoteId unknown = StickyNoteId::random();
        desk().files.setFile(desk().imagePath(unknown), "left over");
        desk().pasteboard.copy({.text = u"before"_s});
        manager().focus(unknown);
        manager().copyToClipboard(unknown);
        QCOMPARE(desk().windows.count, 0);
        QCOMPARE(desk().pasteboard.content().text, u"before"_s);
        QVERIFY(desk().files.exists(desk().imagePath(unknown)));

        manager().close(unknown);
        QVERIFY(!desk().files.exists(desk().imagePath(unknown)));
        desk().files.setFile(desk().imagePath(unknown), "left over");
        manager().remove(unknown);
        QVERIFY(!desk().files.exists(desk().imagePath(unknown)));
        QCOMPARE(desk().files.writeCount(), 0);
    }

    void notesSurviveATemporarilyFullDisk()
    {
        StickyNoteViewModel& note = desk().openSaved(u"a"_s);
        desk().files.failWrites(u"No space left on device"_s);
        QTest::ignoreMessage(QtCriticalMsg,
                             "Failed to persist notes manifest: No space left on device");
        note.setText(u"ab"_s);
        QCOMPARE(manager().notes().front().textContent, u"ab"_s);
        QCOMPARE(desk().manifest().front().textContent, u"a"_s);
        desk().files.succeed();
        note.setText(u"abc"_s);
        QVERIFY(desk().manifest() == manager().notes());
    }

private:
    NotesDesk& desk() { return *m_desk; }
    NoteManager& manager() { return *m_desk->manager; }

    std::optional<NotesDesk> m_desk;
};

DRIFTBOX_TEST(TestNoteManagerOpening, QGuiApplication)
#include "TestNoteManagerOpening.moc"
