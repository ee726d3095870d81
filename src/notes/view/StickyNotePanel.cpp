#include "notes/view/StickyNotePanel.h"

#include "notes/NotePlacement.h"
#include "notes/StickyNoteViewModel.h"
#include "notes/view/NoteContentView.h"
#include "notes/view/NotePaper.h"
#include "ui/theme/Theme.h"
#include "ui/window/ResizeEdges.h"
#include "ui/window/WindowAccessible.h"

#include <QtGui/QCloseEvent>
#include <QtGui/QPainter>
#include <QtGui/QWindow>

using namespace Qt::StringLiterals;

namespace driftbox {

namespace {

constexpr qreal noteCornerRadius = 9.0;
constexpr qreal shadowRadius = 8.0;
constexpr qreal shadowOpacity = 0.22;
constexpr int shadowOffset = 3;
constexpr int shadowExtent = 20;
constexpr qreal noteOutlineOpacity = 0.10;
constexpr qreal plainOutlineOpacity = 0.22; // without a shadow

constexpr int innerGrip = 5;   // the width of a resize handle inside the paper
constexpr int outerGrip = 4;   // and outside, over the shadow
constexpr int cornerGrip = 12; // the length of a corner's handle along an edge

} // namespace

StickyNotePanel::StickyNotePanel(StickyNoteViewModel& viewModel, FloatingSurfaceFactory& surfaces,
                                 Pasteboard& pasteboard, SelectedText& selectedText)
    : m_viewModel(viewModel)
    , m_content(new NoteContentView(viewModel, pasteboard, selectedText, this))
    , m_shadow(noteCornerRadius, shadowRadius, Theme::withOpacity(Qt::black, shadowOpacity))
{
    readAsWindow(*this);
    setWindowTitle(u"Sticky note"_s);
    setAccessibleName(windowTitle());
    setAttribute(Qt::WA_TranslucentBackground);
    setAttribute(Qt::WA_AlwaysShowToolTips); // the window is inactive most of the time
    setMouseTracking(true);
    setFocusProxy(m_content);
    connect(&viewModel, &StickyNoteViewModel::colorChanged, this,
            qOverload<>(&StickyNotePanel::update));

    winId(); // creates the native window that the surface adopts
    m_surface = surfaces.adopt(*windowHandle(), FloatingSurface::Role::note);
    setComposited(m_surface->isComposited());
    connect(m_surface.get(), &FloatingSurface::compositedChanged, this,
            &StickyNotePanel::followCompositing);
    connect(m_content, &NoteContentView::backgroundDragged, m_surface.get(),
            &FloatingSurface::startMove);
    m_content->setFocus();
}

StickyNotePanel::~StickyNotePanel() = default;

// Compositing

double StickyNotePanel::shadowMargin() const
{
    return m_isComposited ? shadowExtent : 0;
}

void StickyNotePanel::followCompositing(bool composited)
{
    const auto inset = [](double margin) { return QMarginsF(margin, margin, margin, margin); };
    const QRectF note = m_surface->frame().marginsRemoved(inset(shadowMargin()));
    setComposited(composited);
    m_surface->setFrame(note.marginsAdded(inset(shadowMargin())));
}

void StickyNotePanel::setComposited(bool composited)
{
    m_isComposited = composited;
    const int margin = qRound(shadowMargin());
    setContentsMargins(margin, margin, margin, margin);
    setMinimumSize(NotePlacement::minWindowSize.toSize() + 2 * QSize(margin, margin));
    arrange();
    update();
}

// Layout and painting

QRect StickyNotePanel::paper() const
{
    return contentsRect();
}

void StickyNotePanel::resizeEvent(QResizeEvent*)
{
    arrange();
}

void StickyNotePanel::arrange()
{
    m_content->setGeometry(paper().adjusted(innerGrip, innerGrip, -innerGrip, -innerGrip));
    if (m_surface)
        m_surface->setShape(m_isComposited
                                ? paper().adjusted(-outerGrip, -outerGrip, outerGrip, outerGrip)
                                : QRect());
}

void StickyNotePanel::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    const QColor color = Theme::noteSwatch(m_viewModel.color());
    constexpr int edge = static_cast<int>(noteCornerRadius);
    const bool isInside = paper().adjusted(edge, edge, -edge, -edge).contains(event->rect());
    if (isInside || !m_isComposited)
        painter.fillRect(event->rect(), color);
    if (!m_isComposited) {
        painter.setPen(NotePaper::ink(plainOutlineOpacity));
        painter.drawRect(QRectF(paper()).adjusted(0.5, 0.5, -0.5, -0.5));
        return;
    }
    if (isInside)
        return;
    m_shadow.paint(painter, paper().translated(0, shadowOffset));
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(continuousRoundedRect(paper(), noteCornerRadius), color);
    painter.setPen(NotePaper::ink(noteOutlineOpacity));
    painter.drawPath(continuousRoundedRect(QRectF(paper()).adjusted(0.5, 0.5, -0.5, -0.5),
                                           noteCornerRadius - 0.5));
}

// The mouse

void StickyNotePanel::enterEvent(QEnterEvent*)
{
    m_content->setHovered(true);
}

void StickyNotePanel::leaveEvent(QEvent*)
{
    m_content->setHovered(false);
}

Qt::Edges StickyNotePanel::edgesAt(QPoint position) const
{
    return ResizeEdges::at(position, paper(), innerGrip, cornerGrip);
}

void StickyNotePanel::mouseMoveEvent(QMouseEvent* event)
{
    if (event->buttons() == Qt::NoButton)
        setCursor(ResizeEdges::cursor(edgesAt(event->pos())));
}

void StickyNotePanel::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        m_surface->startResize(edgesAt(event->pos()));
}

// The window manager requests closing the window.
void StickyNotePanel::closeEvent(QCloseEvent* event)
{
    event->accept();
    m_viewModel.close();
}

StickyNotePanelFactory::StickyNotePanelFactory(FloatingSurfaceFactory& surfaces,
                                               Pasteboard& pasteboard, SelectedText& selectedText)
    : m_surfaces(surfaces)
    , m_pasteboard(pasteboard)
    , m_selectedText(selectedText)
{
}

std::unique_ptr<NoteWindow> StickyNotePanelFactory::makeWindow(StickyNoteViewModel& viewModel)
{
    return std::make_unique<StickyNotePanel>(viewModel, m_surfaces, m_pasteboard, m_selectedText);
}

} // namespace driftbox
