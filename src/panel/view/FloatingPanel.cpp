#include "panel/view/FloatingPanel.h"

#include "panel/view/MagicPanelRootView.h"
#include "ui/window/WindowAccessible.h"

#include <QtGui/QCloseEvent>
#include <QtGui/QWindow>

using namespace Qt::StringLiterals;

namespace driftbox {

namespace {
constexpr QSize panelSize(552, 648);
}

FloatingPanel::FloatingPanel(FloatingSurfaceFactory& surfaces, PanelAnimator& animator,
                             SectionRegistry& registry)
    : m_rootView(new MagicPanelRootView(animator, registry, this))
{
    readAsWindow(*this);
    setWindowTitle(u"Drift Box"_s);
    setAccessibleName(windowTitle());
    setAttribute(Qt::WA_TranslucentBackground);
    setFixedSize(panelSize);
    setContentsMargins(MagicPanelRootView::shadowMargins());
    m_rootView->setGeometry(rect());
    connect(m_rootView, &MagicPanelRootView::settingsRequested, this,
            &FloatingPanel::settingsRequested);

    winId(); // creates the native window that the surface adopts
    m_surface = surfaces.adopt(*windowHandle(), FloatingSurface::Role::panel);
    m_surface->setShape(m_rootView->cardRegion());
    connect(m_surface.get(), &FloatingSurface::compositedChanged, this,
            &FloatingPanel::followCompositing);
    followCompositing(m_surface->isComposited());
}

FloatingPanel::~FloatingPanel() = default;

void FloatingPanel::prepare()
{
    (void)m_rootView->grab();
}

// Accepted, it would destroy the window that the surface has adopted.
void FloatingPanel::closeEvent(QCloseEvent* event)
{
    event->ignore();
    Q_EMIT closeRequested();
}

void FloatingPanel::followCompositing(bool composited)
{
    m_rootView->setComposited(composited);
}

} // namespace driftbox
