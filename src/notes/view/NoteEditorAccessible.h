#pragma once

#include <QtGui/QTextCursor>
#include <QtWidgets/QAccessibleWidget>

namespace driftbox {

class NoteEditor;

/// The text of a note for assistive technology: one element, whose characters and caret have their
/// true places. (The toolkit's own takes every paragraph of a plain text for the first, and warns
/// of questions about the place behind the last character.)
class NoteEditorAccessible final : public QAccessibleWidget,
                                   public QAccessibleTextInterface,
                                   public QAccessibleEditableTextInterface
{
public:
    /// Makes the toolkit use this for every editor of notes. May be called any number of times.
    static void install();

    explicit NoteEditorAccessible(NoteEditor& editor);

    [[nodiscard]] void* interface_cast(QAccessible::InterfaceType type) override;
    [[nodiscard]] QAccessible::State state() const override;
    [[nodiscard]] QString text(QAccessible::Text kind) const override;
    void setText(QAccessible::Text kind, const QString& text) override;
    [[nodiscard]] int childCount() const override { return 0; }
    [[nodiscard]] QAccessibleInterface* childAt(int, int) const override { return nullptr; }

    void selection(int index, int* start, int* end) const override;
    [[nodiscard]] int selectionCount() const override;
    void addSelection(int start, int end) override;
    void removeSelection(int index) override;
    void setSelection(int index, int start, int end) override;
    [[nodiscard]] int cursorPosition() const override;
    void setCursorPosition(int position) override;
    [[nodiscard]] QString text(int start, int end) const override;
    [[nodiscard]] int characterCount() const override;
    /// Behind the last character, the place of the caret there.
    [[nodiscard]] QRect characterRect(int offset) const override;
    [[nodiscard]] int offsetAtPoint(const QPoint& point) const override;
    void scrollToSubstring(int start, int end) override;
    [[nodiscard]] QString attributes(int offset, int* start, int* end) const override;

    void deleteText(int start, int end) override;
    void insertText(int offset, const QString& text) override;
    void replaceText(int start, int end, const QString& text) override;

private:
    /// Offsets outside the text mean its nearest end.
    [[nodiscard]] QTextCursor cursorAt(int start, int end) const;

    NoteEditor& m_editor;
};

} // namespace driftbox
