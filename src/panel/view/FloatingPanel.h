#pragma once

#include "platform/FloatingSurface.h"

#include <memory>

#include <QtWidgets/QWidget>

namespace driftbox {

class MagicPanelRootView;
class PanelAnimator;
class SectionRegistry;

/// The panel's window: translucent, of a fixed size, filled by the root view. Positioned, shown and
/// hidden only through its surface.
class FloatingPanel final : public QWidget
{
    Q_OBJECT

public:
    /// Creates the complete content, so that showing the panel is fast. All arguments must outlive
    /// the panel.
    FloatingPanel(FloatingSurfaceFactory& surfaces, PanelAnimator& animator,
                  SectionRegistry& registry);
    ~FloatingPanel() override;

    [[nodiscard]] FloatingSurface& surface() { return *m_surface; }

    /// Renders the panel once offscreen, so that fonts and symbols are loaded before it is first
    /// shown. Call it when the program is idle.
    void prepare();

Q_SIGNALS:
    void settingsRequested();
    /// The window manager was asked to close the panel, which stays as it is.
    void closeRequested();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void followCompositing(bool composited);

    MagicPanelRootView* m_rootView;
    std::unique_ptr<FloatingSurface> m_surface;
};

} // namespace driftbox
