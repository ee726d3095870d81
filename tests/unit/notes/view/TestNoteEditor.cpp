#include "notes/view/NoteEditor.h"
#include "support/main/TestMain.h"
#include "ui/theme/Theme.h"
#include "unit/notes/view/OpenNote.h"

#include <optional>

#include <QtCore/QMimeData>
#include <QtGui/QClipboard>
#include <QtGui/QDropEvent>
#include <QtGui/QGuiApplication>
#include <QtGui/QTextBlock>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QScrollBar>

using namespace driftbox;
using namespace Qt::StringLiterals;

class TestNoteEditor : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { open({}); }
    void cleanup()
    {
        m_editor.reset();
        m_note.reset();
    }

    // Typing

    void everyKeyPressIsReported()
    {
        QTest::keyClicks(m_editor.get(), u"ab"_s);
        QCOMPARE(m_note->viewModel.text(), u"ab"_s);
        QCOMPARE(m_note->reports, 2);
        QTest::keyClick(m_editor.get(), Qt::Key_Return);
        QTest::keyClick(m_editor.get(), Qt::Key_Return, Qt::ShiftModifier);
        QTest::keyClick(m_editor.get(), Qt::Key_C);
        QCOMPARE(m_note->viewModel.text(), u"ab\n\nc"_s);
    }

    void movingTheCaretIsNotAChange()
    {
        open({.textContent = u"text\nmore"_s});
        for (const Qt::Key key : {Qt::Key_Home, Qt::Key_Up, Qt::Key_Left, Qt::Key_End})
            QTest::keyClick(m_editor.get(), key);
        QTest::keyClick(m_editor.get(), Qt::Key_A, Qt::ControlModifier);
        QCOMPARE(m_note->reports, 0);
    }

    void caretStartsAtTheEnd()
    {
        open({.textContent = u"text"_s});
        QTest::keyClick(m_editor.get(), Qt::Key_S);
        QCOMPARE(m_note->viewModel.text(), u"texts"_s);
    }

    void undoAndRedoWork()
    {
        open({.textContent = u"one"_s});
        QTest::keyClicks(m_editor.get(), u" two"_s);
        QTest::keyClick(m_editor.get(), Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(m_note->viewModel.text(), u"one"_s);
        QTest::keyClick(m_editor.get(), Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(m_note->viewModel.text(), u"one"_s); // opening cannot be undone
        QTest::keyClick(m_editor.get(), Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(m_note->viewModel.text(), u"one two"_s);
    }

    void everyCharacterIsPreserved()
    {
        const QString text =
            u"no-break:\u00A0, line:\u2028, \U0001F468\u200D\U0001F469 e\u0301\n\t"_s;
        open({.textContent = text});
        QTest::keyClick(m_editor.get(), Qt::Key_X);
        QCOMPARE(m_note->viewModel.text(), text + u'x');
        QTest::keyClick(m_editor.get(), Qt::Key_Backspace);
        QCOMPARE(m_note->viewModel.text(), text);
    }

    void emojiIsDeletedAsOneCharacter()
    {
        open({.textContent = u"a\U0001F600"_s});
        QTest::keyClick(m_editor.get(), Qt::Key_Backspace);
        QCOMPARE(m_note->viewModel.text(), u"a"_s);
    }

    void inputMethodTextCountsOnceCommitted()
    {
        QInputMethodEvent composing(u"ni"_s, {});
        QCoreApplication::sendEvent(m_editor.get(), &composing);
        QCOMPARE(m_note->viewModel.text(), QString());
        QInputMethodEvent done;
        done.setCommitString(u"你"_s);
        QCoreApplication::sendEvent(m_editor.get(), &done);
        QCOMPARE(m_note->viewModel.text(), u"你"_s);
    }

    void paragraphsAreAlignedByTheirScript()
    {
        open({.textContent = u"left\nשלום\nagain left\n123"_s});
        const int middle = m_editor->viewport()->width() / 2;
        const auto caretAtStart = [this](int line) {
            QTextCursor cursor(m_editor->document()->findBlockByNumber(line));
            return m_editor->cursorRect(cursor).x();
        };
        QVERIFY(caretAtStart(0) < middle);
        QVERIFY(caretAtStart(1) > middle);
        QVERIFY(caretAtStart(2) < middle);
        QVERIFY(caretAtStart(3) < middle);

        QTest::keyClick(m_editor.get(), Qt::Key_Return);
        m_editor->insertPlainText(u"مرحبا"_s);
        QVERIFY(caretAtStart(4) > middle);
        m_editor->resize(180, 300);
        QVERIFY(caretAtStart(4) > 90);
    }

    // The pasteboard

    void copyingUsesTheProgramsPasteboard()
    {
        QGuiApplication::clipboard()->setText(u"the toolkit's"_s);
        open({.textContent = u"one\ntwo"_s});
        QTest::keyClick(m_editor.get(), Qt::Key_C, Qt::ControlModifier); // nothing is selected
        QCOMPARE(m_note->desk.pasteboard.writes, 0);
        m_editor->selectAll();
        QTest::keyClick(m_editor.get(), Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(m_note->desk.pasteboard.content(), (PasteboardContent{.text = u"one\ntwo"_s}));
        QTest::keyClick(m_editor.get(), Qt::Key_X, Qt::ControlModifier);
        QCOMPARE(m_note->viewModel.text(), QString());
        QCOMPARE(m_note->desk.pasteboard.writes, 2);
        QCOMPARE(QGuiApplication::clipboard()->text(), u"the toolkit's"_s);
    }

    void pastingUsesTheProgramsPasteboard()
    {
        QGuiApplication::clipboard()->setText(u"the toolkit's"_s);
        m_note->desk.pasteboard.copy({.text = u"one\r\ntwo"_s});
        QTest::keyClick(m_editor.get(), Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(m_note->viewModel.text(), u"one\ntwo"_s);
        QTest::keyClick(m_editor.get(), Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(m_note->viewModel.text(), QString());
    }

    void middleClickPastesThePrimarySelectionAtThePointer()
    {
        open({.textContent = u"one\ntwo"_s});
        QGuiApplication::clipboard()->setText(u"the toolkit's"_s);
        QTest::mouseClick(m_editor->viewport(), Qt::MiddleButton, {}, {1, 5});
        QCOMPARE(m_note->selectedText.questions, 1);
        QCOMPARE(m_note->reports, 0);
        QTest::keyClicks(m_editor.get(), u"!"_s); // meanwhile
        m_note->selectedText.tell(u"zero\n"_s);
        QCOMPARE(m_note->viewModel.text(), u"zero\none\ntwo!"_s);
        QCOMPARE(m_editor->textCursor().position(), 5);

        QTest::mouseClick(m_editor->viewport(), Qt::MiddleButton, {}, {1, 5});
        m_note->selectedText.tell({});
        QCOMPARE(m_editor->textCursor().position(), 5);
        QTest::mouseClick(m_editor->viewport(), Qt::MiddleButton, {}, {1, 5});
        m_editor.reset();
        m_note->selectedText.tell(u"too late"_s);
        QCOMPARE(m_note->viewModel.text(), u"zero\none\ntwo!"_s);
    }

    void pastingWithoutTextDoesNothing()
    {
        QTest::keyClick(m_editor.get(), Qt::Key_V, Qt::ControlModifier);
        m_note->desk.pasteboard.copy({.png = "PNG"});
        QTest::keyClick(m_editor.get(), Qt::Key_V, Qt::ControlModifier);
        QGuiApplication::clipboard()->clear();
        m_editor->paste(); // the toolkit's own way
        QCOMPARE(m_note->reports, 0);
    }

    void textIsDroppedWhereThePointerIs()
    {
        open({.textContent = u"ad"_s});
        QTextCursor between = m_editor->textCursor();
        between.setPosition(1);
        const QPoint place = m_editor->cursorRect(between).center();
        QMimeData data;
        data.setText(u"bc"_s);
        QDragEnterEvent enter(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(m_editor->viewport(), &enter);
        QVERIFY(enter.isAccepted());
        QDropEvent drop(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(m_editor->viewport(), &drop);
        QCOMPARE(m_note->viewModel.text(), u"abcd"_s);
    }

    void contextMenuIsDisabled()
    {
        QCOMPARE(m_editor->contextMenuPolicy(), Qt::PreventContextMenu);
    }

    // The mouse

    void draggingBelowTheTextSelectsNothing()
    {
        open({.textContent = u"text"_s});
        const QSignalSpy dragged(m_editor.get(), &NoteEditor::backgroundDragged);
        drag({40, 150}, {60, 150});
        QCOMPARE(dragged.count(), 1);
        QVERIFY(!m_editor->textCursor().hasSelection());

        drag({1, 5}, {150, 5});
        QCOMPARE(dragged.count(), 1);
        QCOMPARE(m_editor->textCursor().selectedText(), u"text"_s);
    }

    void clickBelowTheTextPutsTheCaretAtItsEnd()
    {
        open({.textContent = u"one\ntwo"_s});
        m_editor->moveCursor(QTextCursor::Start);
        QTest::mouseClick(m_editor->viewport(), Qt::LeftButton, {}, {150, 150});
        QVERIFY(m_editor->textCursor().atEnd());
    }

    // Looks

    void fontSizeFollowsTheZoom()
    {
        const auto pixels = [this] {
            return m_editor->font().pointSizeF() * m_editor->logicalDpiY() / 72;
        };
        QVERIFY(qAbs(pixels() - 14) < 0.01);
        m_note->viewModel.setZoom(1.1);
        QVERIFY(qAbs(pixels() - 15.4) < 0.01);
    }

    void veryLongParagraphIsLaidOutWithoutShaping()
    {
        const auto isPlain = [this] {
            return m_editor->document()->defaultFont().styleStrategy() == QFont::PreferNoShaping;
        };
        open({.textContent = QString(u"word "_s).repeated(3'199)});
        QVERIFY(!isPlain());
        QTest::keyClicks(m_editor.get(), u"words"_s);
        QVERIFY(isPlain());
        m_note->viewModel.setZoom(1.1);
        QVERIFY(isPlain());
        QTest::keyClick(m_editor.get(), Qt::Key_Backspace);
        QVERIFY(isPlain()); // so that it does not alternate
        QTest::keyClick(m_editor.get(), Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(m_editor.get(), Qt::Key_Backspace);
        QVERIFY(!isPlain());
        QCOMPARE(m_note->viewModel.text(), QString());

        open({.textContent = QString(u"word\n"_s).repeated(20'000)});
        QVERIFY(!isPlain());
        open({.textContent = QString(u"word "_s).repeated(20'000)});
        QVERIFY(isPlain());
    }

    void lineAtTheEdgeFadesOut()
    {
        open({.textContent = QString(u"MMMMMMMM\n"_s).repeated(30), .color = NoteColor::pink});
        const QColor paper = Theme::noteSwatch(NoteColor::pink);
        const int line = m_editor->cursorRect(QTextCursor(m_editor->document())).height();
        // Whether the lowest pixels of the text are paper; the window beneath has another color.
        const auto endsInPaper = [this, paper] {
            const QImage picture = m_editor->grab().toImage();
            for (int x = 0; x < m_editor->viewport()->width(); ++x) {
                const QColor pixel = picture.pixelColor(x, picture.height() - 1);
                if (std::abs(pixel.green() - paper.green()) > 2 ||
                    std::abs(pixel.blue() - paper.blue()) > 2)
                    return false;
            }
            return true;
        };
        m_editor->resize(240, 5 * line + line / 2);
        QVERIFY(endsInPaper());
        m_editor->verticalScrollBar()->setValue(3);
        QVERIFY(endsInPaper());

        m_editor->resize(240, 5 * line); // whole lines stay as they are
        QVERIFY(!endsInPaper());
        m_editor->resize(240, line / 2); // there would be nothing left
        QVERIFY(!endsInPaper());
    }

    void longTextIsShownFromItsBeginning()
    {
        open({.textContent = QString(u"line\n"_s).repeated(200)});
        QCOMPARE(m_editor->verticalScrollBar()->value(), 0);
        QVERIFY(m_editor->textCursor().atEnd());
    }

private:
    void open(const StickyNote& note)
    {
        m_editor.reset();
        m_note.emplace(note);
        m_editor = std::make_unique<NoteEditor>(m_note->viewModel, m_note->desk.pasteboard,
                                                m_note->selectedText, nullptr);
        m_editor->resize(240, 200);
        m_editor->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_editor.get()));
    }

    void drag(QPoint from, QPoint to)
    {
        QWidget* viewport = m_editor->viewport();
        QTest::mousePress(viewport, Qt::LeftButton, {}, from);
        QMouseEvent move(QEvent::MouseMove, to, viewport->mapToGlobal(to), Qt::NoButton,
                         Qt::LeftButton, {});
        QCoreApplication::sendEvent(viewport, &move);
        QTest::mouseRelease(viewport, Qt::LeftButton, {}, to);
    }

    std::optional<OpenNote> m_note;
    std::unique_ptr<NoteEditor> m_editor;
};

DRIFTBOX_TEST(TestNoteEditor, QApplication)
#include "TestNoteEditor.moc"
