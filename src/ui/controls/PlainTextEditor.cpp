#include "ui/controls/PlainTextEditor.h"

#include "platform/Pasteboard.h"
#include "platform/SelectedText.h"

#include <utility>

#include <QtCore/QMimeData>
#include <QtGui/QKeyEvent>
#include <QtGui/QMouseEvent>

using namespace Qt::StringLiterals;

namespace driftbox {

PlainTextEditor::PlainTextEditor(Pasteboard& pasteboard, SelectedText& selectedText,
                                 QWidget* parent)
    : QPlainTextEdit(parent)
    , m_pasteboard(pasteboard)
    , m_selectedText(selectedText)
{
    setFrameShape(QFrame::NoFrame);
    setContextMenuPolicy(Qt::PreventContextMenu);
}

QString PlainTextEditor::textOf(QString raw)
{
    return std::move(raw.replace(QChar::ParagraphSeparator, u'\n'));
}

// QTextDocument::toPlainText would convert no-break spaces to ordinary ones.
QString PlainTextEditor::text() const
{
    return textOf(document()->toRawText());
}

void PlainTextEditor::copySelection()
{
    const QTextCursor cursor = textCursor();
    if (cursor.hasSelection())
        m_pasteboard.write({.text = textOf(cursor.selectedText())});
}

void PlainTextEditor::keyPressEvent(QKeyEvent* event)
{
    if (event->matches(QKeySequence::Copy)) {
        copySelection();
    } else if (event->matches(QKeySequence::Cut)) {
        copySelection();
        textCursor().removeSelectedText();
    } else if (event->matches(QKeySequence::Paste)) {
        insert(m_pasteboard.content().text.value_or(QString()), textCursor());
    } else if (event->matches(QKeySequence::InsertLineSeparator)) {
        insert(u"\n"_s, textCursor()); // always start a new paragraph
    } else {
        return QPlainTextEdit::keyPressEvent(event);
    }
    event->accept();
}

void PlainTextEditor::insert(const QString& text, QTextCursor position)
{
    if (text.isEmpty())
        return;
    position.insertText(text);
    setTextCursor(position);
    ensureCursorVisible();
}

void PlainTextEditor::insertFromMimeData(const QMimeData* source)
{
    // The base class crashes on data without formats.
    if (source && source->hasText())
        QPlainTextEdit::insertFromMimeData(source);
}

void PlainTextEditor::mousePressEvent(QMouseEvent* event)
{
    // Qt would block on the application that owns the selection.
    if (event->button() != Qt::MiddleButton)
        return QPlainTextEdit::mousePressEvent(event);
    m_selectedText.ask(this, [this, position = cursorForPosition(event->pos())](
                                 const QString& text) { insert(text, position); });
}

void PlainTextEditor::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::MiddleButton)
        QPlainTextEdit::mouseReleaseEvent(event);
}

} // namespace driftbox
