#include "notes/view/NoteContentView.h"

#include "notes/StickyNoteViewModel.h"
#include "notes/view/NoteControlRow.h"
#include "notes/view/NoteEditor.h"
#include "notes/view/NoteImageView.h"
#include "notes/view/NotePaper.h"
#include "ui/theme/Theme.h"

#include <algorithm>

#include <QtGui/QMouseEvent>
#include <QtWidgets/QLabel>

using namespace Qt::StringLiterals;

namespace driftbox {

namespace {

constexpr int sidePadding = 10; // of the text, in points
constexpr int controlPadding = 3;
constexpr int gap = 3;
constexpr int captionGap = 6; // between an image and its text
constexpr int hintHeight = 15;
constexpr int hintSize = 9;
constexpr qreal hintOpacity = 0.5;
constexpr int minLinesUnderImage = 2;

QLabel* makeHint(QWidget* parent)
{
    auto* hint = new QLabel(u"⌘W close   ·   ⌘+  ⌘-  zoom"_s, parent);
    hint->setTextFormat(Qt::PlainText);
    hint->setFont(Theme::systemFont(hintSize));
    QPalette colors;
    colors.setColor(QPalette::WindowText, NotePaper::ink(hintOpacity));
    hint->setPalette(colors);
    return hint;
}

} // namespace

NoteContentView::NoteContentView(StickyNoteViewModel& viewModel, Pasteboard& pasteboard,
                                 SelectedText& selectedText, QWidget* parent)
    : QWidget(parent)
    , m_controls(new NoteControlRow(viewModel, this))
    , m_editor(new NoteEditor(viewModel, pasteboard, selectedText, this))
    , m_hint(makeHint(this))
{
    if (viewModel.note().kind == StickyNote::Kind::image)
        showImage(viewModel);
    setCursor(Qt::ArrowCursor);
    setFocusProxy(m_editor);
    connect(m_editor, &NoteEditor::backgroundDragged, this, &NoteContentView::backgroundDragged);
}

void NoteContentView::showImage(StickyNoteViewModel& viewModel)
{
    m_image = new NoteImageView(viewModel, this);
    connect(&viewModel, &StickyNoteViewModel::imageChanged, this, &NoteContentView::arrange);
    connect(&viewModel, &StickyNoteViewModel::zoomChanged, this, &NoteContentView::arrange);
}

void NoteContentView::setHovered(bool hovered)
{
    m_controls->setPresent(hovered);
}

void NoteContentView::resizeEvent(QResizeEvent*)
{
    arrange();
}

void NoteContentView::arrange()
{
    m_controls->setGeometry(controlPadding, 0, width() - 2 * controlPadding,
                            NoteControlRow::preferredHeight);
    m_hint->setGeometry(sidePadding, height() - hintHeight, width() - 2 * sidePadding, hintHeight);
    QRect body(sidePadding, NoteControlRow::preferredHeight + gap, width() - 2 * sidePadding, 0);
    body.setBottom(height() - hintHeight - gap - 1);
    if (m_image) {
        const int lines = minLinesUnderImage * m_editor->fontMetrics().lineSpacing();
        const int maxHeight = std::max(body.height() - lines - captionGap, body.height() / 2);
        const int preferredHeight = m_image->heightForWidth(body.width());
        m_image->setGeometry(
            QRect(body.topLeft(), QSize(body.width(), std::min(preferredHeight, maxHeight))));
        body.setTop(m_image->geometry().bottom() + 1 + captionGap);
    }
    m_editor->setGeometry(body.adjusted(0, 0, NoteEditor::rightMargin, 0));
}

void NoteContentView::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        m_drag.press(event->pos());
    event->accept();
}

void NoteContentView::mouseMoveEvent(QMouseEvent* event)
{
    if (m_drag.move(event->pos()))
        Q_EMIT backgroundDragged();
}

void NoteContentView::mouseReleaseEvent(QMouseEvent*)
{
    m_drag.release();
}

} // namespace driftbox
