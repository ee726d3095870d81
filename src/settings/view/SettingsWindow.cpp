#include "settings/view/SettingsWindow.h"

#include "ui/theme/Theme.h"
#include "ui/window/ResizeEdges.h"
#include "ui/window/WindowAccessible.h"

#include <QtCore/QEvent>
#include <QtGui/QHoverEvent>
#include <QtGui/QPainter>
#include <QtGui/QWindow>

using namespace Qt::StringLiterals;

namespace driftbox {

namespace {

constexpr QSize contentSize(760, 520);
constexpr QSize minContentSize(700, 400);
constexpr int shadowMargin = 28;
constexpr qreal windowCornerRadius = 12.0;
constexpr qreal shadowRadius = 14.0;
constexpr qreal shadowOpacity = 0.22;
constexpr qreal shadowOffset = 6.0;
constexpr qreal outlineOpacity = 0.12;
constexpr int edgeThickness = 5; // of the resize area, inside the frame
constexpr int cornerLength = 14;

constexpr QMargins shadowMargins(shadowMargin, shadowMargin, shadowMargin, shadowMargin);

} // namespace

SettingsWindow::SettingsWindow(FloatingSurfaceFactory& surfaces, const SettingsServices& services,
                               const TextExchange& exchange)
    : m_rootView(new SettingsRootView(services, exchange, this))
    , m_shadow(windowCornerRadius, shadowRadius, Theme::withOpacity(Qt::black, shadowOpacity))
{
    readAsWindow(*this);
    setWindowTitle(u"Drift Box Settings"_s);
    setAccessibleName(windowTitle());
    setAttribute(Qt::WA_TranslucentBackground);
    setAttribute(Qt::WA_Hover);
    setMinimumSize(minContentSize.grownBy(shadowMargins));
    resize(initialSize().toSize());
    connect(m_rootView, &SettingsRootView::closeRequested, this, &QWidget::close);
    connect(m_rootView, &SettingsRootView::minimizeRequested, this, &QWidget::showMinimized);

    winId(); // creates the window that the surface adopts
    m_surface = surfaces.adopt(*windowHandle(), FloatingSurface::Role::ordinary);
    connect(m_surface.get(), &FloatingSurface::compositedChanged, this, [this] { update(); });
    fitFrame();
}

SettingsWindow::~SettingsWindow() = default;

QSizeF SettingsWindow::initialSize()
{
    return contentSize.grownBy(shadowMargins);
}

bool SettingsWindow::fillsScreen() const
{
    return windowState() & (Qt::WindowMaximized | Qt::WindowFullScreen);
}

QRect SettingsWindow::card() const
{
    return fillsScreen() ? rect() : rect().marginsRemoved(shadowMargins);
}

QPainterPath SettingsWindow::cardPath() const
{
    if (!fillsScreen())
        return continuousRoundedRect(card(), windowCornerRadius);
    QPainterPath path;
    path.addRect(card());
    return path;
}

void SettingsWindow::fitFrame()
{
    m_rootView->setGeometry(card());
    if (m_surface)
        m_surface->setShape(QRegion(cardPath().toFillPolygon().toPolygon()));
}

void SettingsWindow::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    fitFrame();
}

void SettingsWindow::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::WindowStateChange)
        fitFrame();
}

void SettingsWindow::closeEvent(QCloseEvent* event)
{
    event->ignore();
    m_surface->orderOut();
}

bool SettingsWindow::event(QEvent* event)
{
    if (event->type() == QEvent::HoverMove)
        showCursorFor(edgesAt(static_cast<const QHoverEvent*>(event)->position().toPoint()));
    return QWidget::event(event);
}

Qt::Edges SettingsWindow::edgesAt(const QPoint& position) const
{
    const QRect frame = card();
    if (fillsScreen() || !frame.contains(position))
        return {};
    return ResizeEdges::at(position, frame, edgeThickness, cornerLength);
}

void SettingsWindow::showCursorFor(Qt::Edges edges)
{
    if (edges)
        setCursor(ResizeEdges::cursor(edges));
    else
        unsetCursor();
}

void SettingsWindow::mousePressEvent(QMouseEvent* event)
{
    m_drag.release();
    if (event->button() == Qt::LeftButton)
        m_drag.press(event->position().toPoint());
}

// Moving starts with a drag, not with the press: the window manager would miss the release of a
// plain click, and the window would stick to the pointer.
void SettingsWindow::mouseMoveEvent(QMouseEvent* event)
{
    if (!(event->buttons() & Qt::LeftButton))
        return;
    const auto press = m_drag.move(event->position().toPoint());
    if (!press)
        return;
    if (const Qt::Edges edges = edgesAt(*press))
        m_surface->startResize(edges);
    else if (m_rootView->isTitleArea(m_rootView->mapFrom(this, *press)))
        m_surface->startMove();
}

void SettingsWindow::mouseReleaseEvent(QMouseEvent*)
{
    m_drag.release();
}

void SettingsWindow::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton &&
        m_rootView->isTitleArea(m_rootView->mapFrom(this, event->position().toPoint())))
        setWindowState(windowState() ^ Qt::WindowMaximized);
}

void SettingsWindow::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    if (m_surface->isComposited() && !fillsScreen())
        m_shadow.paint(painter, QRectF(card()).translated(0, shadowOffset));
    else
        painter.fillRect(event->rect(), Theme::panelBackground());
    painter.setRenderHint(QPainter::Antialiasing);
    const QPainterPath path = cardPath();
    painter.fillPath(path, palette().color(QPalette::Base));

    QPainterPath sidebar;
    sidebar.addRect(QRectF(card()).adjusted(0, 0, m_rootView->sidebarWidth() - card().width(), 0));
    painter.fillPath(path.intersected(sidebar), Theme::panelBackground());
    painter.setPen(QPen(Theme::withOpacity(Theme::primary(), outlineOpacity), 1.0));
    constexpr qreal inset = 0.5;
    if (!fillsScreen())
        painter.drawPath(continuousRoundedRect(
            QRectF(card()).adjusted(inset, inset, -inset, -inset), windowCornerRadius - inset));
}

} // namespace driftbox
