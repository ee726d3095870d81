#include "notes/view/NoteEditor.h"

#include "notes/StickyNoteViewModel.h"
#include "notes/view/NoteDocumentLayout.h"
#include "notes/view/NoteEditorAccessible.h"
#include "notes/view/NotePaper.h"
#include "ui/theme/Theme.h"

#include <algorithm>
#include <utility>

#include <QtGui/QLinearGradient>
#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>
#include <QtGui/QTextBlock>
#include <QtWidgets/QScrollBar>

using namespace Qt::StringLiterals;

namespace driftbox {

namespace {

constexpr qreal pointsPerInch = 72.0;
// The paragraph lengths, in characters, at which simplified shaping is turned on and off again.
constexpr int simplifiedShapingOnLength = 16'000;
constexpr int simplifiedShapingOffLength = 12'000;

QTextDocument* makeDocument(QObject* parent)
{
    auto* document = new QTextDocument(parent);
    document->setDocumentLayout(new NoteDocumentLayout(document));
    document->setDocumentMargin(0);
    QTextOption option = document->defaultTextOption();
    option.setTextDirection(Qt::LayoutDirectionAuto);
    document->setDefaultTextOption(option);
    return document;
}

} // namespace

NoteEditor::NoteEditor(StickyNoteViewModel& viewModel, Pasteboard& pasteboard,
                       SelectedText& selectedText, QWidget* parent)
    : PlainTextEditor(pasteboard, selectedText, parent)
    , m_viewModel(viewModel)
    , m_scrollBar(new OverlayScrollBar(*verticalScrollBar(), this))
{
    NoteEditorAccessible::install(); // before the first accessibility query
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setViewportMargins(0, 0, rightMargin, 0);
    QPalette ink;
    ink.setColor(QPalette::WindowText, NotePaper::ink());
    m_scrollBar->setPalette(ink);
    setAccessibleName(u"Note text"_s);
    setDocument(makeDocument(this));
    showColor();
    showZoom();
    showText();
    connect(this, &QPlainTextEdit::textChanged, this, &NoteEditor::report);
    // Scrolling copies pixels, but the faded last line must be repainted.
    connect(verticalScrollBar(), &QScrollBar::valueChanged, viewport(),
            qOverload<>(&QWidget::update));
    connect(&viewModel, &StickyNoteViewModel::colorChanged, this, &NoteEditor::showColor);
    connect(&viewModel, &StickyNoteViewModel::zoomChanged, this, &NoteEditor::showZoom);
}

// Every key press shapes the whole paragraph again. Ligatures and kerning make that five times
// slower, which is noticeable in very long paragraphs. Complex scripts are still shaped.
void NoteEditor::updateShaping()
{
    int maxLength = 0;
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next())
        maxLength = std::max(maxLength, block.length());
    const int threshold =
        m_isShapingSimplified ? simplifiedShapingOffLength : simplifiedShapingOnLength;
    if (std::exchange(m_isShapingSimplified, maxLength > threshold) != m_isShapingSimplified)
        showZoom();
}

void NoteEditor::report()
{
    updateShaping();
    m_viewModel.setText(text());
}

void NoteEditor::showText()
{
    setPlainText(m_viewModel.text());
    updateShaping();
    moveCursor(QTextCursor::End);
}

void NoteEditor::showColor()
{
    QPalette colors;
    colors.setBrush(QPalette::Base, Qt::transparent);
    colors.setColor(QPalette::Text, NotePaper::ink());
    colors.setColor(QPalette::Highlight, NotePaper::selection(m_viewModel.color()));
    colors.setColor(QPalette::HighlightedText, NotePaper::ink());
    setPalette(colors);
}

void NoteEditor::showZoom()
{
    QFont font = Theme::systemFont(qRound(m_viewModel.textSize()));
    if (m_isShapingSimplified)
        font.setStyleStrategy(QFont::PreferNoShaping);
    // A size in points, because pixel sizes are integers.
    font.setPointSizeF(m_viewModel.textSize() * pointsPerInch / logicalDpiY());
    setFont(font);
}

void NoteEditor::showEvent(QShowEvent* event)
{
    PlainTextEditor::showEvent(event);
    // The cursor starts at the end of the text, but the view at its beginning.
    if (!event->spontaneous())
        verticalScrollBar()->setValue(0);
}

QRectF NoteEditor::clippedLine() const
{
    const qreal edge = viewport()->height();
    QTextBlock block = firstVisibleBlock();
    qreal top = blockBoundingGeometry(block).translated(contentOffset()).top();
    while (block.isValid() && top + blockBoundingRect(block).height() <= edge) {
        top += blockBoundingRect(block).height();
        block = block.next();
    }
    for (int index = 0; block.isValid() && index < block.layout()->lineCount(); ++index) {
        const QTextLine line = block.layout()->lineAt(index);
        const qreal lineTop = top + line.y();
        if (lineTop + line.height() > edge)
            return lineTop > 0 && lineTop < edge
                       ? QRectF(0, lineTop, viewport()->width(), line.height())
                       : QRectF();
    }
    return {};
}

// Fades out the last line if the lower edge clips it.
void NoteEditor::paintEvent(QPaintEvent* event)
{
    PlainTextEditor::paintEvent(event);
    const QRectF line = clippedLine();
    if (line.isEmpty())
        return;
    const QColor paper = Theme::noteSwatch(m_viewModel.color());
    QLinearGradient fading(line.topLeft(), {line.left(), qreal(viewport()->height())});
    fading.setColorAt(0.0, Theme::withOpacity(paper, 0.0));
    fading.setColorAt(0.9, paper);
    QPainter(viewport()).fillRect(line, fading);
}

void NoteEditor::resizeEvent(QResizeEvent* event)
{
    PlainTextEditor::resizeEvent(event);
    m_scrollBar->placeIn(rect());
}

// The mouse

bool NoteEditor::isBelowText(QPoint position) const
{
    const QTextBlock last = document()->lastBlock();
    return position.y() > blockBoundingGeometry(last).translated(contentOffset()).bottom();
}

void NoteEditor::mousePressEvent(QMouseEvent* event)
{
    m_isMovingWindow = false;
    if (event->button() == Qt::LeftButton && isBelowText(event->pos()))
        m_drag.press(event->pos());
    PlainTextEditor::mousePressEvent(event);
}

void NoteEditor::mouseMoveEvent(QMouseEvent* event)
{
    if (m_isMovingWindow)
        return;
    if (!m_drag.isPressed())
        return PlainTextEditor::mouseMoveEvent(event);
    m_isMovingWindow = m_drag.move(event->pos()).has_value();
    if (m_isMovingWindow)
        Q_EMIT backgroundDragged();
}

void NoteEditor::mouseReleaseEvent(QMouseEvent* event)
{
    m_isMovingWindow = false;
    m_drag.release();
    PlainTextEditor::mouseReleaseEvent(event);
}

} // namespace driftbox
