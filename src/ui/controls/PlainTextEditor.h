#pragma once

#include <QtGui/QTextCursor>
#include <QtWidgets/QPlainTextEdit>

namespace driftbox {

class Pasteboard;
class SelectedText;

/// A plain text to write in. Copying and pasting goes through the program's pasteboard, a click
/// with the middle button pastes what is selected somewhere; there is no menu.
class PlainTextEditor : public QPlainTextEdit
{
    Q_OBJECT

public:
    /// Both must outlive the editor.
    PlainTextEditor(Pasteboard& pasteboard, SelectedText& selectedText, QWidget* parent);

    [[nodiscard]] QString text() const;
    /// The text that a part of the document stands for.
    [[nodiscard]] static QString textOf(QString raw);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void insertFromMimeData(const QMimeData* source) override;

private:
    void copySelection();
    void insert(const QString& text, QTextCursor place);

    Pasteboard& m_pasteboard;
    SelectedText& m_selectedText;
};

} // namespace driftbox
