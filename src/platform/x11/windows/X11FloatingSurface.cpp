#include "platform/x11/windows/X11FloatingSurface.h"

#include "platform/x11/connection/QtXcb.h"
#include "platform/x11/connection/X11Connection.h"
#include "platform/x11/connection/X11Reply.h"
#include "platform/x11/windows/X11Compositing.h"
#include "platform/x11/windows/X11Shape.h"
#include "platform/x11/windows/X11WindowGeometry.h"

#include <algorithm>
#include <chrono>
#include <utility>

#include <QtCore/QEvent>
#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>
#include <QtGui/QWindow>

using namespace std::chrono_literals;

namespace driftbox {

namespace {

// Windows report every step of a drag, and newly placed ones may still report their previous
// position; a geometry that is stable for this long is what the user wants.
constexpr auto settleDelay = 60ms;

// How long after mapping the window manager may still move a window.
constexpr auto placingTime = 250ms;

constexpr int maxPlacingRequests = 3;
constexpr auto takeoverTime = 2s; // the same after a new window manager has started

constexpr auto showsWithoutActivating = "_q_showWithoutActivating"; // the toolkit's name for it

constexpr auto floatingProperty = "driftboxFloating";

} // namespace

bool isFloating(const QWindow& window)
{
    return window.property(floatingProperty).toBool();
}

X11FloatingSurface::X11FloatingSurface(QWindow& window, Role role, X11Connection& connection,
                                       const X11Compositing& compositing)
    : m_window(window)
    , m_connection(connection)
    , m_compositing(compositing)
    , m_role(role)
    , m_id(static_cast<xcb_window_t>(window.winId()))
    , m_hints(connection, m_id, role)
    , m_windowManager(connection, QtXcb::connection())
    , m_frame(X11WindowGeometry::frame(window))
{
    // Staying on top is one of the hints: as a flag it would make the toolkit recreate the window
    // when it is shown.
    window.setFlags(Qt::Window | Qt::FramelessWindowHint);
    window.setProperty(floatingProperty, role != Role::ordinary);
    window.installEventFilter(this);
    connect(&window, &QWindow::screenChanged, this, &X11FloatingSurface::applyShape);

    m_settleTimer.setSingleShot(true);
    m_settleTimer.setInterval(settleDelay);
    connect(&m_settleTimer, &QTimer::timeout, this, &X11FloatingSurface::settleGeometry);

    connect(&compositing, &X11Compositing::changed, this, [this](bool active) {
        applyShape();
        Q_EMIT compositedChanged(active);
    });
}

X11FloatingSurface::~X11FloatingSurface() = default;

void X11FloatingSurface::setFrame(const QRectF& frame)
{
    m_frame = frame;
    m_settleTimer.stop();
    X11WindowGeometry::setFrame(m_window, frame);
}

bool X11FloatingSurface::isInPlace() const
{
    return X11WindowGeometry::pixels(m_window) == X11WindowGeometry::pixelsFor(m_window, m_frame);
}

bool X11FloatingSurface::isVisible() const
{
    return m_window.isVisible();
}

void X11FloatingSurface::present(Keyboard keyboard)
{
    const bool takesKeyboard = keyboard == Keyboard::take;
    const xcb_timestamp_t now = QtXcb::noteUserAction();
    if (m_window.isVisible()) {
        m_window.raise();
    } else {
        m_window.setProperty(showsWithoutActivating, !takesKeyboard);
        m_hints.put();
        m_isFreshlyMapped = true;
        m_window.show();
    }
    if (takesKeyboard)
        takeKeyboard(now);
}

void X11FloatingSurface::takeKeyboard(xcb_timestamp_t time)
{
    if (m_windowManager.isPresent()) {
        m_windowManager.activate(m_id, time);
    } else if (m_window.isExposed()) {
        m_windowManager.activateDirectly(m_id);
    } else {
        m_takesKeyboardOnceViewable = true;
    }
}

void X11FloatingSurface::orderOut()
{
    settleGeometry();
    m_takesKeyboardOnceViewable = false;
    m_window.hide();
    setKey(false);
}

bool X11FloatingSurface::eventFilter(QObject* receiver, QEvent* event)
{
    if (receiver != &m_window)
        return false;
    if (event->type() == QEvent::Expose && m_window.isExposed())
        handleExposed();
    else if (event->type() == QEvent::MouseButtonPress)
        m_placingRequests = 0; // the user may be about to move or maximize the window
    return false;
}

void X11FloatingSurface::handleExposed()
{
    // Some window managers ignore the initial input shape of a window but not a change of it; those
    // that process the withdrawal late remove the new hints along with the old.
    if (std::exchange(m_isFreshlyMapped, false)) {
        enforceFrameFor(placingTime);
        m_hints.repeat();
        applyShape();
        checkGeometry();
    }
    if (std::exchange(m_takesKeyboardOnceViewable, false))
        m_windowManager.activateDirectly(m_id);
}

void X11FloatingSurface::handleFocusChange(const xcb_focus_in_event_t& event)
{
    // Ignore grabs, such as those of hot keys and menus of other programs, and pointer
    // notifications: the focus has not changed.
    if (event.mode == XCB_NOTIFY_MODE_GRAB || event.mode == XCB_NOTIFY_MODE_UNGRAB ||
        event.detail == XCB_NOTIFY_DETAIL_POINTER)
        return;
    ++m_focusChanges;
    if ((event.response_type & 0x7f) == XCB_FOCUS_IN)
        setKey(m_window.isVisible());
    else if (event.detail != XCB_NOTIFY_DETAIL_INFERIOR)
        verifyKey();
}

// Some window managers focus another window for a moment while they move this one.
void X11FloatingSurface::verifyKey()
{
    if (!m_isKey)
        return;
    m_connection.whenReplied<xcb_get_input_focus_reply_t>(
        xcb_get_input_focus(m_connection.xcb()).sequence, this,
        [this, focusChanges = m_focusChanges](const xcb_get_input_focus_reply_t* focus) {
            if (focusChanges == m_focusChanges && (focus == nullptr || focus->focus != m_id))
                setKey(false);
        });
    m_connection.flush();
}

void X11FloatingSurface::setKey(bool key)
{
    if (std::exchange(m_isKey, key) == key)
        return;
    if (key)
        Q_EMIT becameKey();
    else
        Q_EMIT resignedKey();
}

void X11FloatingSurface::handleNewWindowManager()
{
    if (!m_window.isVisible())
        return;
    if (m_isFreshlyMapped)
        X11WindowGeometry::showAgain(m_window, m_frame);
    m_hints.repeat();
    enforceFrameFor(takeoverTime);
}

bool X11FloatingSurface::isComposited() const
{
    return m_compositing.isActive();
}

void X11FloatingSurface::setShape(const QRegion& shape)
{
    m_shape = shape;
    applyShape();
}

void X11FloatingSurface::setClickThrough(bool clickThrough)
{
    if (std::exchange(m_isClickThrough, clickThrough) != clickThrough)
        applyShape();
}

void X11FloatingSurface::applyShape()
{
    const QRegion pixels = X11Shape::inPixels(m_shape, m_window.devicePixelRatio());
    // With compositing the window draws its own smooth edges; only the input shape is needed.
    const bool composited = m_compositing.isActive();
    X11Shape::set(m_id, X11Shape::Kind::drawing, composited ? QRegion() : pixels);
    if (m_isClickThrough)
        X11Shape::setNothing(m_id, X11Shape::Kind::input);
    else
        X11Shape::set(m_id, X11Shape::Kind::input, composited ? pixels : QRegion());
    if (m_role == Role::ordinary)
        m_hints.putFrameExtents(extentsAround(pixels));
}

QMargins X11FloatingSurface::extentsAround(const QRegion& shape) const
{
    if (shape.isEmpty())
        return {};
    const QRect inner = shape.boundingRect();
    const QSize whole = (QSizeF(m_window.size()) * m_window.devicePixelRatio()).toSize();
    return {inner.left(), inner.top(), std::max(0, whole.width() - 1 - inner.right()),
            std::max(0, whole.height() - 1 - inner.bottom())};
}

// If the button was released before the window manager takes over, it would miss that, and the
// window would stick to the pointer. The toolkit's state may be outdated.
bool X11FloatingSurface::isButtonHeld() const
{
    const auto cookie = xcb_query_pointer(m_connection.xcb(), m_connection.root());
    const X11Reply<xcb_query_pointer_reply_t> pointer(
        xcb_query_pointer_reply(m_connection.xcb(), cookie, nullptr));
    return pointer && (pointer->mask & XCB_BUTTON_MASK_1) != 0;
}

void X11FloatingSurface::startMove()
{
    if (!isButtonHeld())
        return;
    m_window.startSystemMove();
}

void X11FloatingSurface::startResize(Qt::Edges edges)
{
    if (!isButtonHeld())
        return;
    m_window.startSystemResize(edges);
}

void X11FloatingSurface::handleConfigured()
{
    // Deferred until the toolkit has processed the event, too.
    QMetaObject::invokeMethod(this, &X11FloatingSurface::checkGeometry, Qt::QueuedConnection);
}

void X11FloatingSurface::checkGeometry()
{
    // A window passes through other positions while it is being mapped.
    if (!m_window.isVisible() || m_isFreshlyMapped || isInPlace())
        return;
    // Window managers that place new windows themselves accept a second request.
    if (m_placingRequests > 0 && !m_placingDeadline.hasExpired()) {
        --m_placingRequests;
        X11WindowGeometry::setFrame(m_window, m_frame);
    } else if (!m_settleTimer.isActive()) {
        m_settleTimer.start();
    }
}

void X11FloatingSurface::enforceFrameFor(std::chrono::milliseconds time)
{
    m_placingRequests = maxPlacingRequests;
    m_placingDeadline = QDeadlineTimer(time);
}

void X11FloatingSurface::settleGeometry()
{
    m_settleTimer.stop();
    if (!m_window.isVisible() || m_isFreshlyMapped || isInPlace())
        return;
    m_frame = X11WindowGeometry::frame(m_window);
    Q_EMIT frameChangedByUser(m_frame);
}

} // namespace driftbox
