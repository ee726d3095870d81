#include "notes/StickyNoteViewModel.h"
#include "support/main/TestMain.h"
#include "unit/notes/NotesDesk.h"

#include <optional>

#include <QtTest/QTest>

using namespace driftbox;
using namespace Qt::StringLiterals;

class TestNoteManagerKeys : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_desk.emplace();
        manager().restore();
    }
    void cleanup() { m_desk.reset(); }

    void closeKeyDeletesADraftAndHidesASavedNote()
    {
        manager().createNote(picture({10, 10}));
        QVERIFY(press(Qt::Key_W));
        QVERIFY(manager().notes().empty());
        QVERIFY(desk().files.files().isEmpty());

        desk().openSaved(u"kept"_s);
        QVERIFY(press(Qt::Key_W));
        QCOMPARE(manager().notes().size(), size_t(1));
        QVERIFY(!manager().isOpen(manager().notes().front().id));
    }

    void closeKeyAffectsOnlyTheFocusedNote()
    {
        desk().open(u"a"_s);
        desk().lastSurface().setKey(false);
        desk().open(u"b"_s);
        QVERIFY(press(Qt::Key_W));
        QCOMPARE(manager().notes().size(), size_t(1));
        QCOMPARE(manager().notes().front().textContent, u"a"_s);
    }

    void zoomKeysZoomTheFocusedNote_data()
    {
        QTest::addColumn<Qt::Key>("key");
        QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
        QTest::addColumn<double>("zoom");
        const Qt::KeyboardModifiers control = Qt::ControlModifier;
        QTest::newRow("equal") << Qt::Key_Equal << control << 1.1;
        QTest::newRow("plus") << Qt::Key_Plus << (control | Qt::ShiftModifier) << 1.1;
        QTest::newRow("keypad") << Qt::Key_Plus << (control | Qt::KeypadModifier) << 1.1;
        QTest::newRow("minus") << Qt::Key_Minus << control << 1 / 1.1;
        QTest::newRow("shift minus")
            << Qt::Key_Underscore << (control | Qt::ShiftModifier) << 1 / 1.1;
        QTest::newRow("super") << Qt::Key_Minus << Qt::KeyboardModifiers(Qt::MetaModifier)
                               << 1 / 1.1;
        QTest::newRow("other modifiers do not matter")
            << Qt::Key_Equal << (control | Qt::AltModifier) << 1.1;
    }
    void zoomKeysZoomTheFocusedNote()
    {
        QFETCH(const Qt::Key, key);
        QFETCH(const Qt::KeyboardModifiers, modifiers);
        desk().open(u"a"_s);
        QVERIFY(desk().keys.press(key, modifiers));
        QTEST(manager().notes().front().zoom, "zoom");
    }

    void newNoteKeyOpensANoteBesideTheFocusedOne()
    {
        desk().open(u"a"_s);
        QVERIFY(press(Qt::Key_N));
        QCOMPARE(manager().notes().size(), size_t(2));
        QCOMPARE(manager().notes().front().textContent, u""_s);
    }

    void heldKeyKeepsZoomingButClosesOrCreatesOneNote()
    {
        desk().open(u"a"_s);
        QVERIFY(desk().keys.press(Qt::Key_N, Qt::ControlModifier, true));
        QCOMPARE(manager().notes().size(), size_t(1));
        QVERIFY(desk().keys.press(Qt::Key_W, Qt::ControlModifier, true));
        QCOMPARE(manager().notes().size(), size_t(1));
        QVERIFY(manager().isOpen(manager().notes().front().id));
        QVERIFY(desk().keys.press(Qt::Key_Equal, Qt::ControlModifier, true));
        QCOMPARE(manager().notes().front().zoom, 1.1);

        desk().lastSurface().setKey(false);
        QVERIFY(!desk().keys.press(Qt::Key_W, Qt::ControlModifier, true));
    }

    void keysPassWithoutAFocusedNote()
    {
        desk().open(u"a"_s);
        desk().lastSurface().setKey(false);
        for (const Qt::Key key : {Qt::Key_W, Qt::Key_Equal, Qt::Key_Plus, Qt::Key_Minus, Qt::Key_N})
            QVERIFY(!press(key));
        QCOMPARE(manager().notes().size(), size_t(1));
        QCOMPARE(manager().notes().front().zoom, 1.0);
    }

    void otherKeysPass()
    {
        desk().open(u"a"_s);
        for (const Qt::Key key : {Qt::Key_C, Qt::Key_V, Qt::Key_Q, Qt::Key_0, Qt::Key_Control})
            QVERIFY(!press(key));
        for (const Qt::Key key : {Qt::Key_W, Qt::Key_Equal, Qt::Key_Minus, Qt::Key_N}) {
            QVERIFY(!desk().keys.press(key, Qt::NoModifier));
            QVERIFY(!desk().keys.press(key, Qt::AltModifier | Qt::ShiftModifier));
        }
        QCOMPARE(manager().notes().size(), size_t(1));
    }

    void keysPassBeforeRestoreAndAfterDestruction()
    {
        desk().restart();
        desk().open(u"a"_s);
        QVERIFY(!press(Qt::Key_W));
        manager().restore();
        m_desk->manager.reset();
        QVERIFY(!press(Qt::Key_W));
    }

private:
    NotesDesk& desk() { return *m_desk; }
    NoteManager& manager() { return *m_desk->manager; }
    bool press(Qt::Key key) { return desk().keys.press(key, Qt::ControlModifier); }

    std::optional<NotesDesk> m_desk;
};

DRIFTBOX_TEST(TestNoteManagerKeys, QGuiApplication)
#include "TestNoteManagerKeys.moc"
