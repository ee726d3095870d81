#include "notes/view/NoteEditor.h"
#include "support/main/TestMain.h"
#include "unit/notes/view/OpenNote.h"

#include <optional>

#include <QtGui/QAccessible>
#include <QtTest/QTest>

using namespace driftbox;
using namespace Qt::StringLiterals;

class TestNoteEditorAccessible : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup()
    {
        m_editor.reset();
        m_note.reset();
    }

    void noteIsOneEditableText()
    {
        open(u"some text"_s);
        QCOMPARE(element().role(), QAccessible::EditableText);
        QCOMPARE(element().text(QAccessible::Name), u"Note text"_s);
        QCOMPARE(element().text(QAccessible::Value), u"some text"_s);
        QCOMPARE(element().childCount(), 0);
        const QAccessible::State state = element().state();
        QVERIFY(state.editable && state.multiLine && state.focusable && !state.readOnly);
    }

    void textRangesCanBeRead()
    {
        open(u"one\ntwo\u00A0\U0001F600"_s);
        QCOMPARE(text().characterCount(), 10);
        QCOMPARE(text().text(2, 5), u"e\nt"_s);
        QCOMPARE(text().text(7, -1), u"\u00A0\U0001F600"_s);
        QCOMPARE(text().text(4, 400), u"two\u00A0\U0001F600"_s);
        QCOMPARE(text().text(-4, 2), u"on"_s);
        int start = 0;
        int end = 0;
        QCOMPARE(text().textAtOffset(5, QAccessible::WordBoundary, &start, &end), u"two"_s);
        QCOMPARE(start, 4);
        QCOMPARE(end, 7);
    }

    void charactersHaveRectangles()
    {
        open(u"ab\nc"_s);
        const QRect a = text().characterRect(0);
        const QRect b = text().characterRect(1);
        const QRect c = text().characterRect(3);
        QVERIFY(b.x() > a.x());
        QCOMPARE(b.y(), a.y());
        QCOMPARE(c.x(), a.x());
        QCOMPARE(c.y(), a.y() + a.height());
        QVERIFY(m_editor->viewport()->geometry().translated(m_editor->pos()).contains(c));
        QCOMPARE(text().offsetAtPoint(c.center()), 3 + (c.center().x() > c.x() + c.width() / 2));
    }

    void characterRectanglesFollowScrolling()
    {
        open(u"line\n"_s.repeated(100));
        const int before = text().characterRect(250).y();
        QVERIFY(before > m_editor->height());
        text().scrollToSubstring(250, 254);
        QVERIFY(text().characterRect(250).y() < before);
        QVERIFY(m_editor->viewport()->rect().contains(
            m_editor->viewport()->mapFromGlobal(text().characterRect(250).center())));
        QVERIFY(m_editor->textCursor().atEnd());
    }

    void rectanglePastTheEndIsTheCaret_data()
    {
        QTest::addColumn<QString>("content");
        QTest::newRow("nothing") << QString();
        QTest::newRow("a word") << u"word"_s;
        QTest::newRow("an empty line") << u"word\n"_s;
    }
    void rectanglePastTheEndIsTheCaret()
    {
        QFETCH(const QString, content);
        open(content);
        const QRect place = text().characterRect(text().cursorPosition());
        const QPoint caret = m_editor->viewport()->mapToGlobal(m_editor->cursorRect().topLeft());
        QCOMPARE(place.topLeft(), caret);
        QVERIFY(place.height() > 10);
        QVERIFY(text().characterRect(int(content.size()) + 1).isEmpty());
        QVERIFY(text().characterRect(-1).isEmpty());
    }

    void selectionCanBeReadAndSet()
    {
        open(u"some words"_s);
        QCOMPARE(text().selectionCount(), 0);
        text().addSelection(5, 9);
        QCOMPARE(m_editor->textCursor().selectedText(), u"word"_s);
        int start = 0;
        int end = 0;
        text().selection(0, &start, &end);
        QCOMPARE(text().selectionCount(), 1);
        QCOMPARE(start, 5);
        QCOMPARE(end, 9);
        text().removeSelection(0);
        QCOMPARE(text().selectionCount(), 0);
        text().setCursorPosition(1000);
        QCOMPARE(text().cursorPosition(), 10);
    }

    void textWrittenByAssistiveTechnologyCountsAsTyped()
    {
        open(u"some words"_s);
        auto* const editing = element().editableTextInterface();
        editing->insertText(4, u" more"_s);
        QCOMPARE(m_note->viewModel.text(), u"some more words"_s);
        editing->deleteText(0, 5);
        QCOMPARE(m_note->viewModel.text(), u"more words"_s);
        editing->replaceText(5, 99, u"text"_s);
        QCOMPARE(m_note->viewModel.text(), u"more text"_s);
        QTest::keyClick(m_editor.get(), Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(m_note->viewModel.text(), u"more words"_s);
        element().setText(QAccessible::Value, u"new"_s);
        QCOMPARE(m_note->viewModel.text(), u"new"_s);
    }

private:
    void open(const QString& content)
    {
        m_note.emplace(StickyNote{.textContent = content});
        m_editor = std::make_unique<NoteEditor>(m_note->viewModel, m_note->desk.pasteboard,
                                                m_note->selectedText, nullptr);
        m_editor->resize(240, 200);
        m_editor->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_editor.get()));
    }

    [[nodiscard]] QAccessibleInterface& element() const
    {
        return *QAccessible::queryAccessibleInterface(m_editor.get());
    }
    [[nodiscard]] QAccessibleTextInterface& text() const { return *element().textInterface(); }

    std::optional<OpenNote> m_note;
    std::unique_ptr<NoteEditor> m_editor;
};

DRIFTBOX_TEST(TestNoteEditorAccessible, QApplication)
#include "TestNoteEditorAccessible.moc"
