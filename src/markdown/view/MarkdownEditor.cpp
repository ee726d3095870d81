#include "markdown/view/MarkdownEditor.h"

#include "markdown/MarkdownReaderViewModel.h"
#include "ui/theme/Theme.h"

#include <algorithm>
#include <utility>

#include <QtGui/QFontDatabase>
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

bool startsWithWindowsLineEnding(const QString& text)
{
    const auto end = text.indexOf(u'\n');
    return end > 0 && text[end - 1] == u'\r';
}

} // namespace

MarkdownEditor::MarkdownEditor(MarkdownReaderViewModel& viewModel, Pasteboard& pasteboard,
                               SelectedText& selectedText, QWidget* parent)
    : PlainTextEditor(pasteboard, selectedText, parent)
    , m_viewModel(viewModel)
    , m_hasWindowsLineEndings(startsWithWindowsLineEnding(viewModel.markdown()))
{
    setBackgroundRole(QPalette::Base); // including the margins beside the column
    setAutoFillBackground(true);
    setAccessibleName(u"Markdown source"_s);
    setFont(sourceFont());
    setTabStopDistance(tabWidth * fontMetrics().horizontalAdvance(u' '));
    setPlainText(viewModel.markdown());
    connect(this, &QPlainTextEdit::textChanged, this,
            [this] { m_viewModel.setMarkdown(markdown()); });
}

QString MarkdownEditor::markdown() const
{
    QString source = text();
    if (m_hasWindowsLineEndings)
        source.replace(u"\n"_s, u"\r\n"_s);
    return source;
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
    PlainTextEditor::showEvent(event);
    if (const auto line = std::exchange(m_lineToShow, std::nullopt)) {
        // Line wrapping is not known before.
        verticalScrollBar()->setValue(document()->findBlockByNumber(*line).firstLineNumber());
        m_firstTopLine = firstVisibleBlock().blockNumber();
    }
}

void MarkdownEditor::resizeEvent(QResizeEvent* event)
{
    const int side = std::max(margin, (width() - columnWidth) / 2);
    setViewportMargins(side, topMargin, side, 0);
    PlainTextEditor::resizeEvent(event);
}

} // namespace driftbox
