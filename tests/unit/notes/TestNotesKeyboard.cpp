#include "core/RowSelection.h"
#include "notes/NotesKeyboard.h"
#include "notes/NotesListModel.h"
#include "support/main/TestMain.h"
#include "unit/notes/NotesDesk.h"

#include <optional>

#include <QtTest/QTest>

using namespace driftbox;
using namespace Qt::StringLiterals;

namespace {

constexpr int rowsPerPage = 2;

/// The page of the panel without its widgets. The saved notes a to d are there, a in front, all
/// closed.
struct Page
{
    Page()
    {
        for (const QString& text : {u"d"_s, u"c"_s, u"b"_s, u"a"_s})
            desk.openSaved(text);
        desk.manager->closeAll();
    }

    bool press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}, bool isRepeated = false)
    {
        return keyboard.handle({key, modifiers, isRepeated}, rowsPerPage);
    }
    [[nodiscard]] QStringList openTexts() const
    {
        QStringList texts;
        for (const StickyNote& note : desk.manager->notes()) {
            if (desk.manager->isOpen(note.id))
                texts << *note.textContent;
        }
        return texts;
    }

    NotesDesk desk;
    NotesListModel rows{*desk.manager};
    RowSelection selection{rows};
    NotesKeyboard keyboard{*desk.manager, rows, selection};
};

} // namespace

class TestNotesKeyboard : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_page.emplace(); }
    void cleanup() { m_page.reset(); }

    void arrowsMoveTheSelectionAndEnterOpens()
    {
        QVERIFY(m_page->press(Qt::Key_Down));
        QVERIFY(m_page->press(Qt::Key_PageDown));
        QVERIFY(m_page->press(Qt::Key_Up));
        QCOMPARE(m_page->selection.row(), 2);
        QVERIFY(m_page->press(Qt::Key_Return));
        QCOMPARE(m_page->openTexts(), QStringList(u"c"_s));
        QVERIFY(m_page->press(Qt::Key_Home));
        QVERIFY(m_page->press(Qt::Key_Enter, Qt::KeypadModifier));
        QCOMPARE(m_page->openTexts(), QStringList({u"a"_s, u"c"_s}));
    }

    void controlDigitOpensTheRowWithThatNumber()
    {
        QVERIFY(m_page->press(Qt::Key_2, Qt::ControlModifier));
        QVERIFY(m_page->press(Qt::Key_4, Qt::ControlModifier | Qt::ShiftModifier));
        QVERIFY(m_page->press(Qt::Key_9, Qt::ControlModifier)); // there is no such row
        QCOMPARE(m_page->openTexts(), QStringList({u"b"_s, u"d"_s}));
        QVERIFY(!m_page->press(Qt::Key_1));
    }

    void deleteRemovesTheRowOnlyWhileTheSearchFieldIsEmpty()
    {
        m_page->rows.setQuery(u"b"_s);
        QVERIFY(!m_page->press(Qt::Key_Delete));
        QVERIFY(!m_page->press(Qt::Key_Home));
        QCOMPARE(m_page->desk.manager->notes().size(), size_t(4));
        m_page->rows.setQuery({});
        QVERIFY(m_page->press(Qt::Key_Delete));
        QCOMPARE(m_page->desk.manager->notes().front().textContent, u"b"_s);
        QCOMPARE(m_page->selection.row(), 0);
    }

    void heldKeyActsOnce()
    {
        QVERIFY(m_page->press(Qt::Key_Delete, {}, true));
        QVERIFY(m_page->press(Qt::Key_Return, {}, true));
        QCOMPARE(m_page->desk.manager->notes().size(), size_t(4));
        QVERIFY(m_page->openTexts().isEmpty());
    }

    void keysDoNothingWithoutRows()
    {
        m_page->rows.setQuery(u"nothing like it"_s);
        QVERIFY(m_page->press(Qt::Key_Return));
        QVERIFY(m_page->press(Qt::Key_Down));
        QVERIFY(m_page->openTexts().isEmpty());
    }

    void otherKeysGoToTheSearchField()
    {
        for (const Qt::Key key : {Qt::Key_A, Qt::Key_Left, Qt::Key_Backspace, Qt::Key_Space})
            QVERIFY(!m_page->press(key));
        for (const Qt::Key key : {Qt::Key_A, Qt::Key_N, Qt::Key_W, Qt::Key_Return})
            QVERIFY(!m_page->press(key, Qt::ControlModifier));
        QVERIFY(!m_page->press(Qt::Key_Delete, Qt::ShiftModifier));
    }

private:
    std::optional<Page> m_page;
};

DRIFTBOX_TEST(TestNotesKeyboard, QGuiApplication)
#include "TestNotesKeyboard.moc"
