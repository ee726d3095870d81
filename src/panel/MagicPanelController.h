#pragma once

#include <memory>
#include <optional>

#include <QtCore/QObject>
#include <QtCore/QPointF>

namespace driftbox {

class Clock;
class CursorLocator;
class FloatingSurface;
class LocalKeyMonitor;
class MonitorToken;
class PasteRequest;
class PanelAnimator;
class PasteKeystroke;
class RunningApplication;
class Screens;
class Workspace;
struct KeyPress;

/// Shows the panel next to the text caret, hides it, and pastes what the user picks into the
/// application that was active before. Main thread only.
class MagicPanelController : public QObject
{
    Q_OBJECT

public:
    /// The controller's dependencies, all of which must outlive it.
    struct Services
    {
        Workspace& workspace;
        PasteKeystroke& pasteKeystroke;
        const CursorLocator& cursorLocator;
        const Screens& screens;
        LocalKeyMonitor& localKeys;
        const PasteRequest& pasteRequest;
        Clock& clock;
    };

    /// `panel` is the panel's hidden window. Starts handling paste requests. `animator` and `panel`
    /// must outlive the controller.
    MagicPanelController(PanelAnimator& animator, FloatingSurface& panel, const Services& services,
                         QObject* parent = nullptr);
    ~MagicPanelController() override;

    /// Whether a toggle should hide the panel: it is visible, possibly still being hidden, or about
    /// to be shown.
    [[nodiscard]] bool isPanelVisible() const;

    /// Captures the active application as the paste target and shows the panel once the caret
    /// lookup has finished. Has no effect during the lookup. Does not cancel a hide in progress.
    void show();

    /// Hides the panel with an animation, and cancels a show that is waiting for the caret lookup.
    void hide();

Q_SIGNALS:
    /// Emitted before the panel is shown, so that its content can be updated.
    void aboutToShow();

private:
    void captureTarget();
    void present(std::optional<QPointF> origin);
    void startHiding();
    void orderOut();
    void installEscapeMonitor();
    [[nodiscard]] bool handleKeyPress(const KeyPress& press);
    void handlePaste();
    void pasteBack(const std::shared_ptr<RunningApplication>& target);

    PanelAnimator& m_animator;
    FloatingSurface& m_panel;
    Services m_services;
    std::unique_ptr<MonitorToken> m_escapeMonitor;
    bool m_isHiding = false;
    bool m_isAwaitingCaret = false;
    quint64 m_generation = 0; ///< of the pending caret lookup
    std::shared_ptr<RunningApplication> m_frontmostApp;
};

} // namespace driftbox
