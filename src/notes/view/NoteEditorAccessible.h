#pragma once

#include <QtGui/QTextCursor>
#include <QtWidgets/QAccessibleWidget>

namespace driftbox {

class NoteEditor;

/// The accessible interface of a note's text: a single element with correct character and caret
/// rectangles. (Qt's own maps every paragraph of a plain text editor to the first one, and warns
/// when asked for the position after the last character.)
class NoteEditorAccessible final : public QAccessibleWidget,
                                   public QAccessibleTextInterface,
                                   public QAccessibleEditableTextInterface
{
public:
    /// Registers this interface for all note editors. Calling it again has no effect.
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
    /// For the offset after the last character, the rectangle of the caret there.
    [[nodiscard]] QRect characterRect(int offset) const override;
    [[nodiscard]] int offsetAtPoint(const QPoint& point) const override;
    void scrollToSubstring(int start, int end) override;
    [[nodiscard]] QString attributes(int offset, int* start, int* end) const override;

    void deleteText(int start, int end) override;
    void insertText(int offset, const QString& text) override;
    void replaceText(int start, int end, const QString& text) override;

private:
    /// Offsets are clamped to the text.
    [[nodiscard]] QTextCursor cursorAt(int start, int end) const;

    NoteEditor& m_editor;
};

} // namespace driftbox
