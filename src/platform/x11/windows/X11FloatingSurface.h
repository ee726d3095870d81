#pragma once

#include "platform/FloatingSurface.h"
#include "platform/x11/windows/X11FloatingHints.h"
#include "platform/x11/windows/X11WindowManager.h"

#include <chrono>
#include <cstdint>

#include <QtCore/QDeadlineTimer>
#include <QtCore/QTimer>

#include <xcb/xcb.h>

namespace driftbox {

class X11Compositing;
class X11Connection;

/// Whether the window is a panel or a note.
[[nodiscard]] bool isFloating(const QWindow& window);

/// A toolkit window that the program draws entirely. Unless its role is `ordinary`, the window
/// manager is asked to let it float. Main thread only.
class X11FloatingSurface final : public FloatingSurface
{
    Q_OBJECT

public:
    /// Round trips. All references must outlive the surface.
    X11FloatingSurface(QWindow& window, Role role, X11Connection& connection,
                       const X11Compositing& compositing);
    ~X11FloatingSurface() override;

    [[nodiscard]] QRectF frame() const override { return m_frame; }
    void setFrame(const QRectF& frame) override;
    [[nodiscard]] bool isVisible() const override;
    [[nodiscard]] bool isKey() const override { return m_isKey; }
    void present(Keyboard keyboard) override;
    void orderOut() override;
    [[nodiscard]] bool isComposited() const override;
    void setShape(const QRegion& shape) override;
    void setClickThrough(bool clickThrough) override;
    void startMove() override;
    void startResize(Qt::Edges edges) override;

    [[nodiscard]] xcb_window_t window() const { return m_id; }
    /// Handles a FocusIn or FocusOut of the window.
    void handleFocusChange(const xcb_focus_in_event_t& event);
    /// Handles a ConfigureNotify of the window that the toolkit has not processed yet.
    void handleConfigured();
    void handleNewWindowManager();

    [[nodiscard]] bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    void setKey(bool key);
    void verifyKey();
    void takeKeyboard(xcb_timestamp_t time);
    void handleExposed();
    [[nodiscard]] bool isButtonHeld() const;
    void applyShape();
    [[nodiscard]] QMargins extentsAround(const QRegion& shape) const;
    [[nodiscard]] bool isInPlace() const;
    void checkGeometry();
    void settleGeometry();
    void enforceFrameFor(std::chrono::milliseconds time);

    QWindow& m_window;
    X11Connection& m_connection;
    const X11Compositing& m_compositing;
    const Role m_role;
    const xcb_window_t m_id;
    const X11FloatingHints m_hints;
    const X11WindowManager m_windowManager;

    QRectF m_frame; ///< as requested, until the user changes it
    QRegion m_shape;
    bool m_isClickThrough = false;
    QTimer m_settleTimer;
    QDeadlineTimer m_placingDeadline;
    int m_placingRequests = 0; ///< remaining until the deadline
    bool m_isKey = false;
    std::uint64_t m_focusChanges = 0;
    bool m_isFreshlyMapped = false;
    bool m_takesKeyboardOnceViewable = false;
};

} // namespace driftbox
