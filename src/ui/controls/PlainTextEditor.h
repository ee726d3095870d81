#pragma once

#include <QtGui/QTextCursor>
#include <QtWidgets/QPlainTextEdit>

namespace driftbox {

class Pasteboard;
class SelectedText;

/// An editor for plain text. It copies and pastes through the program's pasteboard; a middle click
/// pastes the primary selection. It has no context menu.
class PlainTextEditor : public QPlainTextEdit
{
    Q_OBJECT

public:
    /// `pasteboard` and `selectedText` must outlive the editor.
    PlainTextEditor(Pasteboard& pasteboard, SelectedText& selectedText, QWidget* parent);

    [[nodiscard]] QString text() const;
    /// Converts the document's raw text to plain text with line feeds.
    [[nodiscard]] static QString textOf(QString raw);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void insertFromMimeData(const QMimeData* source) override;

private:
    void copySelection();
    void insert(const QString& text, QTextCursor position);

    Pasteboard& m_pasteboard;
    SelectedText& m_selectedText;
};

} // namespace driftbox
