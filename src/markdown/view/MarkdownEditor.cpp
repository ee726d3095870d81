#include "markdown/view/MarkdownEditor.h"

#include "markdown/MarkdownReaderViewModel.h"
#include "panel/view/Theme.h"
#include "platform/Pasteboard.h"

#include <algorithm>
#include <utility>

#include <QtCore/QMimeData>
#include <QtGui/QFontDatabase>
#include <QtGui/QKeyEvent>
#include <QtGui/QTextBlock>
#include <QtWidgets/QScrollBar>

using namespace Qt::StringLiterals;

namespace driftbox {

namespace {

constexpr int textSize = 13;
constexpr int tabWidth = 4;      // in characters
constexpr int columnWidth = 760; // wider lines are hard to read
constexpr int margin = 28;
constexpr int topMargin = 14;

QFont sourceFont()
{
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    font.setPixelSize(textSize);
    return font;
}

bool beginsWithWindowsLineEnd(const QString& text)
{
    const auto end = text.indexOf(u'\n');
    return end > 0 && text[end - 1] == u'\r';
}

} // namespace

MarkdownEditor::MarkdownEditor(MarkdownReaderViewModel& viewModel, Pasteboard& pasteboard,
                               QWidget* parent)
    : QPlainTextEdit(parent)
    , m_viewModel(viewModel)
    , m_pasteboard(pasteboard)
    , m_hasWindowsLineEnds(beginsWithWindowsLineEnd(viewModel.markdown()))
{
    setFrameShape(QFrame::NoFrame);
    setBackgroundRole(QPalette::Base); // beside the column, too
    setAutoFillBackground(true);
    setContextMenuPolicy(Qt::PreventContextMenu);
    setAccessibleName(u"Markdown source"_s);
    setFont(sourceFont());
    setTabStopDistance(tabWidth * fontMetrics().horizontalAdvance(u' '));
    setPlainText(viewModel.markdown());
    connect(this, &QPlainTextEdit::textChanged, this, [this] { m_viewModel.setMarkdown(text()); });
}

QString MarkdownEditor::text() const
{
    // The document's own plain text would turn no-break spaces into ordinary ones.
    QString raw = document()->toRawText();
    raw.replace(QChar::ParagraphSeparator, u'\n');
    if (m_hasWindowsLineEnds)
        raw.replace(u"\n"_s, u"\r\n"_s);
    return raw;
}

void MarkdownEditor::showLine(int line)
{
    const QTextBlock block = document()->findBlockByNumber(line);
    if (!block.isValid())
        return;
    m_lineToShow = line;
    setTextCursor(QTextCursor(block));
}

std::optional<int> MarkdownEditor::lineScrolledTo() const
{
    const int line = firstVisibleBlock().blockNumber();
    return m_lineToShow || line == m_firstTopLine ? std::nullopt : std::optional(line);
}

void MarkdownEditor::showEvent(QShowEvent* event)
{
    QPlainTextEdit::showEvent(event);
    if (const auto line = std::exchange(m_lineToShow, std::nullopt)) {
        // Only now is it known how the lines are wrapped.
        verticalScrollBar()->setValue(document()->findBlockByNumber(*line).firstLineNumber());
        m_firstTopLine = firstVisibleBlock().blockNumber();
    }
}

void MarkdownEditor::resizeEvent(QResizeEvent* event)
{
    const int side = std::max(margin, (width() - columnWidth) / 2);
    setViewportMargins(side, topMargin, side, 0);
    QPlainTextEdit::resizeEvent(event);
}

void MarkdownEditor::copySelection()
{
    const QTextCursor cursor = textCursor();
    if (cursor.hasSelection()) {
        m_pasteboard.write(
            {.text = cursor.selectedText().replace(QChar::ParagraphSeparator, u'\n')});
    }
}

void MarkdownEditor::keyPressEvent(QKeyEvent* event)
{
    if (event->matches(QKeySequence::Copy)) {
        copySelection();
    } else if (event->matches(QKeySequence::Cut)) {
        copySelection();
        textCursor().removeSelectedText();
    } else if (event->matches(QKeySequence::Paste)) {
        insertPlainText(m_pasteboard.content().text.value_or(QString()));
        ensureCursorVisible();
    } else if (event->matches(QKeySequence::InsertLineSeparator)) {
        textCursor().insertBlock(); // one kind of line end is enough
        ensureCursorVisible();
    } else {
        return QPlainTextEdit::keyPressEvent(event);
    }
    event->accept();
}

void MarkdownEditor::mousePressEvent(QMouseEvent* event)
{
    // The toolkit would wait for the program that owns the primary selection to paste it.
    if (event->button() != Qt::MiddleButton)
        QPlainTextEdit::mousePressEvent(event);
}

void MarkdownEditor::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::MiddleButton)
        QPlainTextEdit::mouseReleaseEvent(event);
}

void MarkdownEditor::insertFromMimeData(const QMimeData* source)
{
    // The toolkit's own would crash on data without formats.
    if (source && source->hasText())
        QPlainTextEdit::insertFromMimeData(source);
}

} // namespace driftbox
