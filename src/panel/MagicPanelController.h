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
class NotificationCenter;
class PanelAnimator;
class PasteKeystroke;
class RunningApplication;
class Screens;
class Workspace;
struct KeyPress;

/// Brings the panel up by the text caret, takes it away again, and pastes what was picked in it
/// into the application that the user was in. Main thread only.
class MagicPanelController : public QObject
{
    Q_OBJECT

public:
    /// What the controller works with; everything must outlive it.
    struct Services
    {
        Workspace& workspace;
        PasteKeystroke& pasteKeystroke;
        const CursorLocator& cursorLocator;
        const Screens& screens;
        LocalKeyMonitor& localKeys;
        NotificationCenter& notificationCenter;
        Clock& clock;
    };

    /// `panel` is the panel's window, hidden. From now on paste requests are obeyed.
    MagicPanelController(PanelAnimator& animator, FloatingSurface& panel, const Services& services,
                         QObject* parent = nullptr);
    ~MagicPanelController() override;

    /// Whether a toggle has to hide the panel: it is on the screen, even on its way out, or about
    /// to be.
    [[nodiscard]] bool isPanelVisible() const;

    /// Remembers the application that the user is in as the target of pasting and brings the panel
    /// up once the place of the caret is known. Does nothing while that is being found out. A hide
    /// that is under way is not called off.
    void show();

    /// Takes the panel away, at the end of its animation; a showing that still waits for the caret
    /// is called off.
    void hide();

Q_SIGNALS:
    /// The panel is about to be shown: what it shows should be brought up to date now.
    void aboutToShow();

private:
    void captureTarget();
    void present(std::optional<QPointF> origin);
    void takeAway();
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
    quint64 m_showing = 0; ///< the generation of the caret's answer that is waited for
    std::shared_ptr<RunningApplication> m_frontmostApp;
};

} // namespace driftbox
