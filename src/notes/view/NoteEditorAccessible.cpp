#include "notes/view/NoteEditorAccessible.h"

#include "notes/view/NoteEditor.h"

#include <algorithm>

#include <QtGui/QTextDocument>
#include <QtWidgets/QScrollBar>

namespace driftbox {

namespace {

QAccessibleInterface* makeInterface(const QString&, QObject* object)
{
    auto* editor = qobject_cast<NoteEditor*>(object);
    return editor ? new NoteEditorAccessible(*editor) : nullptr;
}

} // namespace

void NoteEditorAccessible::install()
{
    QAccessible::installFactory(makeInterface); // has no effect if it is installed already
}

NoteEditorAccessible::NoteEditorAccessible(NoteEditor& editor)
    : QAccessibleWidget(&editor, QAccessible::EditableText)
    , m_editor(editor)
{
}

void* NoteEditorAccessible::interface_cast(QAccessible::InterfaceType type)
{
    if (type == QAccessible::TextInterface)
        return static_cast<QAccessibleTextInterface*>(this);
    if (type == QAccessible::EditableTextInterface)
        return static_cast<QAccessibleEditableTextInterface*>(this);
    return QAccessibleWidget::interface_cast(type);
}

QAccessible::State NoteEditorAccessible::state() const
{
    QAccessible::State state = QAccessibleWidget::state();
    state.editable = true;
    state.multiLine = true;
    state.selectableText = true;
    return state;
}

QString NoteEditorAccessible::text(QAccessible::Text kind) const
{
    return kind == QAccessible::Value ? m_editor.text() : QAccessibleWidget::text(kind);
}

void NoteEditorAccessible::setText(QAccessible::Text kind, const QString& text)
{
    if (kind == QAccessible::Value)
        replaceText(0, characterCount(), text);
    else
        QAccessibleWidget::setText(kind, text);
}

// Reading

QTextCursor NoteEditorAccessible::cursorAt(int start, int end) const
{
    QTextCursor cursor(m_editor.document());
    cursor.setPosition(std::clamp(start, 0, characterCount()));
    cursor.setPosition(std::clamp(end, 0, characterCount()), QTextCursor::KeepAnchor);
    return cursor;
}

int NoteEditorAccessible::characterCount() const
{
    return m_editor.document()->characterCount() - 1; // without the final paragraph separator
}

QString NoteEditorAccessible::text(int start, int end) const
{
    const QTextCursor range = cursorAt(start, end < 0 ? characterCount() : end);
    return NoteEditor::textOf(range.selectedText());
}

QRect NoteEditorAccessible::characterRect(int offset) const
{
    if (offset < 0 || offset > characterCount())
        return {};
    const QRect caret = m_editor.cursorRect(cursorAt(offset, offset));
    const QRect next = m_editor.cursorRect(cursorAt(offset + 1, offset + 1));
    QRect rect(caret.topLeft(), QSize(1, caret.height()));
    if (next.y() == caret.y()) {
        rect.setLeft(std::min(caret.x(), next.x()));
        rect.setWidth(std::max(1, std::abs(next.x() - caret.x())));
    }
    rect.moveTopLeft(m_editor.viewport()->mapToGlobal(rect.topLeft()));
    return rect;
}

int NoteEditorAccessible::offsetAtPoint(const QPoint& point) const
{
    return m_editor.cursorForPosition(m_editor.viewport()->mapFromGlobal(point)).position();
}

QString NoteEditorAccessible::attributes(int, int* start, int* end) const
{
    *start = 0; // all of the text has the same attributes
    *end = characterCount();
    return {};
}

// The caret and the selection

int NoteEditorAccessible::cursorPosition() const
{
    return m_editor.textCursor().position();
}

void NoteEditorAccessible::setCursorPosition(int position)
{
    m_editor.setTextCursor(cursorAt(position, position));
}

int NoteEditorAccessible::selectionCount() const
{
    return m_editor.textCursor().hasSelection() ? 1 : 0;
}

void NoteEditorAccessible::selection(int index, int* start, int* end) const
{
    const QTextCursor cursor = m_editor.textCursor();
    const bool exists = index == 0 && cursor.hasSelection();
    *start = exists ? cursor.selectionStart() : 0;
    *end = exists ? cursor.selectionEnd() : 0;
}

void NoteEditorAccessible::addSelection(int start, int end)
{
    setSelection(0, start, end);
}

void NoteEditorAccessible::removeSelection(int index)
{
    if (index == 0)
        setCursorPosition(cursorPosition());
}

void NoteEditorAccessible::setSelection(int index, int start, int end)
{
    if (index == 0)
        m_editor.setTextCursor(cursorAt(start, end));
}

void NoteEditorAccessible::scrollToSubstring(int start, int end)
{
    const QTextCursor before = m_editor.textCursor();
    for (const int offset : {end, start})
        setCursorPosition(offset); // scrolls there
    const int scrollPosition = m_editor.verticalScrollBar()->value();
    m_editor.setTextCursor(before); // scrolls back
    m_editor.verticalScrollBar()->setValue(scrollPosition);
}

// Writing

void NoteEditorAccessible::deleteText(int start, int end)
{
    replaceText(start, end, {});
}

void NoteEditorAccessible::insertText(int offset, const QString& text)
{
    replaceText(offset, offset, text);
}

void NoteEditorAccessible::replaceText(int start, int end, const QString& text)
{
    cursorAt(start, end).insertText(text);
}

} // namespace driftbox
