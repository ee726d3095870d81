#pragma once

#include "platform/FloatingSurface.h"

#include <memory>

#include <QtWidgets/QWidget>

namespace driftbox {

class MagicPanelRootView;
class PanelAnimator;
class SectionRegistry;

/// The panel's window: translucent, of a fixed size, filled by the root view. It is placed, shown
/// and hidden through its surface only.
class FloatingPanel final : public QWidget
{
    Q_OBJECT

public:
    /// All of it is built here, so that showing it has nothing left to do. The models must outlive
    /// the panel.
    FloatingPanel(FloatingSurfaceFactory& surfaces, PanelAnimator& animator,
                  SectionRegistry& registry);
    ~FloatingPanel() override;

    [[nodiscard]] FloatingSurface& surface() { return *m_surface; }

    /// Draws the panel once, unseen, so that the first showing finds fonts and symbols loaded.
    /// Worth calling when the program has nothing else to do.
    void prepare();

Q_SIGNALS:
    void settingsRequested();

private:
    void followCompositing(bool composited);

    MagicPanelRootView* m_rootView;
    std::unique_ptr<FloatingSurface> m_surface;
};

} // namespace driftbox
