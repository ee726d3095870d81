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
// Characters of a paragraph beyond which, and up to which again, its letters are set one by one.
constexpr int longParagraph = 16'000;
constexpr int usualParagraph = 12'000;

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
    NoteEditorAccessible::install(); // before anything asks
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
    // What fades must not be moved along with the text.
    connect(verticalScrollBar(), &QScrollBar::valueChanged, viewport(),
            qOverload<>(&QWidget::update));
    connect(&viewModel, &StickyNoteViewModel::colorChanged, this, &NoteEditor::showColor);
    connect(&viewModel, &StickyNoteViewModel::zoomChanged, this, &NoteEditor::showZoom);
}

// Every key press sets the whole paragraph anew. Ligatures and kerning make that five times as
// long, which shows in a very long one. Scripts that need them have them all the same.
void NoteEditor::chooseSetting()
{
    int longest = 0;
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next())
        longest = std::max(longest, block.length());
    if (std::exchange(m_isSetPlainly, longest > (m_isSetPlainly ? usualParagraph
                                                                : longParagraph)) != m_isSetPlainly)
        showZoom();
}

void NoteEditor::report()
{
    chooseSetting();
    m_viewModel.setText(text());
}

void NoteEditor::showText()
{
    setPlainText(m_viewModel.text());
    chooseSetting();
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
    if (m_isSetPlainly)
        font.setStyleStrategy(QFont::PreferNoShaping);
    // In pixels a font has whole sizes only.
    font.setPointSizeF(m_viewModel.textSize() * pointsPerInch / logicalDpiY());
    setFont(font);
}

void NoteEditor::showEvent(QShowEvent* event)
{
    PlainTextEditor::showEvent(event);
    // One writes on at the end of a text but begins to read at its beginning.
    if (!event->spontaneous())
        verticalScrollBar()->setValue(0);
}

QRectF NoteEditor::cutLine() const
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

// Text that goes on fades away rather than ending in half a line.
void NoteEditor::paintEvent(QPaintEvent* event)
{
    PlainTextEditor::paintEvent(event);
    const QRectF line = cutLine();
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
    m_isHandedOver = false;
    if (event->button() == Qt::LeftButton && isBelowText(event->pos()))
        m_drag.press(event->pos());
    PlainTextEditor::mousePressEvent(event);
}

void NoteEditor::mouseMoveEvent(QMouseEvent* event)
{
    if (m_isHandedOver)
        return;
    if (!m_drag.isPressed())
        return PlainTextEditor::mouseMoveEvent(event);
    m_isHandedOver = m_drag.move(event->pos()).has_value();
    if (m_isHandedOver)
        Q_EMIT backgroundDragged();
}

void NoteEditor::mouseReleaseEvent(QMouseEvent* event)
{
    m_isHandedOver = false;
    m_drag.release();
    PlainTextEditor::mouseReleaseEvent(event);
}

} // namespace driftbox
