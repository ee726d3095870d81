#include "platform/x11/connection/X11Connection.h"

#include "platform/x11/connection/X11Reply.h"

#include <algorithm>
#include <utility>
#include <vector>

#include <QtCore/QAbstractEventDispatcher>
#include <QtCore/QElapsedTimer>
#include <QtCore/QLoggingCategory>

#include <xcb/xcbext.h>
#include <xcb/xtest.h>

namespace driftbox {

namespace {

Q_LOGGING_CATEGORY(x11ConnectionLog, "X11Connection")

// Delivery yields to other work of the event loop after this time.
constexpr qint64 sliceMs = 6;

// More than two shortcuts need, including the release of all modifiers.
constexpr std::size_t maxFakedKeys = 64;

constexpr auto timeProperty = "_DRIFTBOX_SERVER_TIME";

} // namespace

std::unique_ptr<X11Connection> X11Connection::open(const QByteArray& display)
{
    int screenNumber = 0;
    Handle xcb(xcb_connect(display.isNull() ? nullptr : display.constData(), &screenNumber));
    if (xcb_connection_has_error(xcb.get()) != 0) {
        qCWarning(x11ConnectionLog).noquote() << "Cannot connect to the X server";
        return nullptr;
    }
    return std::unique_ptr<X11Connection>(new X11Connection(std::move(xcb), screenNumber));
}

bool X11Connection::isServerThere()
{
    const Handle xcb(xcb_connect(nullptr, nullptr));
    return xcb_connection_has_error(xcb.get()) == 0;
}

X11Connection::X11Connection(Handle xcb, int screenNumber)
    : m_xcb(std::move(xcb))
    , m_notifier(xcb_get_file_descriptor(m_xcb.get()), QSocketNotifier::Read)
{
    auto screens = xcb_setup_roots_iterator(xcb_get_setup(m_xcb.get()));
    for (int i = 0; i < screenNumber; ++i)
        xcb_screen_next(&screens);
    m_screen = screens.data;

    m_helperWindow = createHiddenWindow(XCB_EVENT_MASK_PROPERTY_CHANGE);
    connect(&m_notifier, &QSocketNotifier::activated, this, &X11Connection::deliver);
    // Blocking calls also read events, which the socket notifier does not report, and pending
    // requests must be sent. The second signal covers event loops that poll instead of blocking.
    const auto* dispatcher = QAbstractEventDispatcher::instance();
    connect(dispatcher, &QAbstractEventDispatcher::aboutToBlock, this, &X11Connection::deliver);
    connect(dispatcher, &QAbstractEventDispatcher::awake, this, &X11Connection::deliver);
}

X11Connection::~X11Connection()
{
    m_notifier.setEnabled(false);
    // Closing a socket with unread events may discard requests that the server has not read yet, so
    // wait for its reply first.
    const X11Reply<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(xcb(), xcb_get_input_focus(xcb()), nullptr));
}

xcb_window_t X11Connection::createHiddenWindow(std::uint32_t eventMask) const
{
    const xcb_window_t window = xcb_generate_id(xcb());
    xcb_create_window(xcb(), XCB_COPY_FROM_PARENT, window, root(), -1, -1, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK,
                      &eventMask);
    return window;
}

bool X11Connection::hasCreated(xcb_window_t window) const
{
    const auto* setup = xcb_get_setup(xcb());
    return (window & ~setup->resource_id_mask) == setup->resource_id_base;
}

xcb_atom_t X11Connection::atom(const QByteArray& name)
{
    if (!m_atoms.contains(name)) {
        const char* const names[] = {name.constData()};
        intern(names);
    }
    return m_atoms.value(name, XCB_ATOM_NONE);
}

void X11Connection::intern(std::span<const char* const> names)
{
    std::vector<std::pair<QByteArray, xcb_intern_atom_cookie_t>> cookies;
    for (const char* name : names) {
        if (m_atoms.contains(name))
            continue;
        QByteArray key(name);
        const auto cookie =
            xcb_intern_atom(xcb(), false, static_cast<std::uint16_t>(key.size()), name);
        cookies.emplace_back(std::move(key), cookie);
    }
    for (const auto& [name, cookie] : cookies) {
        const X11Reply<xcb_intern_atom_reply_t> reply(
            xcb_intern_atom_reply(xcb(), cookie, nullptr));
        if (reply)
            m_atoms.insert(name, reply->atom);
    }
}

std::optional<std::uint8_t> X11Connection::firstEventOf(xcb_extension_t& extension) const
{
    const auto* data = xcb_get_extension_data(xcb(), &extension);
    if (data == nullptr || data->present == 0)
        return std::nullopt;
    return data->first_event;
}

void X11Connection::await(unsigned int sequence, QObject* owner,
                          std::function<void(const void*)> handle)
{
    if (m_isOpen)
        m_replies.push_back({sequence, owner, std::move(handle)});
}

void X11Connection::whenServerTimeKnown(QObject* owner, std::function<void(xcb_timestamp_t)> handle)
{
    if (!m_isOpen)
        return;
    // Even appending nothing causes an event with the server's time.
    m_times.push_back({owner, std::move(handle)});
    xcb_change_property(xcb(), XCB_PROP_MODE_APPEND, m_helperWindow, atom(timeProperty),
                        XCB_ATOM_INTEGER, 32, 0, nullptr);
}

void X11Connection::flush()
{
    xcb_flush(xcb());
}

void X11Connection::deliver()
{
    if (!m_isOpen)
        return;
    const QPointer<X11Connection> self(this); // a handler may destroy this
    QElapsedTimer slice;
    slice.start();
    bool more = true;
    while (more && slice.elapsed() < sliceMs) {
        const bool hadEvent = deliverNextEvent();
        if (!self)
            return;
        const bool hadReply = deliverNextReply();
        if (!self)
            return;
        more = hadEvent || hadReply;
    }
    if (more)
        QMetaObject::invokeMethod(this, &X11Connection::deliver, Qt::QueuedConnection);
    xcb_flush(xcb());
    checkForClosing();
}

void X11Connection::fakeKey(std::uint8_t type, xcb_keycode_t code)
{
    const auto request =
        xcb_test_fake_input(xcb(), type, code, XCB_CURRENT_TIME, XCB_NONE, 0, 0, 0);
    m_fakedKeys.push_back(request.sequence);
    if (m_fakedKeys.size() > maxFakedKeys)
        m_fakedKeys.pop_front();
}

bool X11Connection::hasFaked(std::uint32_t sequence) const
{
    return std::ranges::find(m_fakedKeys, sequence) != m_fakedKeys.end();
}

bool X11Connection::deliverNextReply()
{
    if (m_replies.empty())
        return false;
    void* rawReply = nullptr;
    xcb_generic_error_t* rawError = nullptr;
    if (xcb_poll_for_reply(xcb(), m_replies.front().sequence, &rawReply, &rawError) == 0)
        return false;
    const X11Reply<void> reply(rawReply);
    const X11Reply<xcb_generic_error_t> error(rawError);
    const PendingReply pending = std::move(m_replies.front());
    m_replies.pop_front();
    if (pending.owner)
        pending.handle(reply.get());
    return true;
}

bool X11Connection::deliverNextEvent()
{
    const X11Reply<xcb_generic_event_t> event(xcb_poll_for_event(xcb()));
    if (!event)
        return false;
    // Errors result from requests about other programs' windows, which may disappear at any time.
    if (event->response_type == 0)
        return true;
    if (event->response_type == XCB_PROPERTY_NOTIFY) {
        const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(*event);
        if (change.window == m_helperWindow && !m_times.empty()) {
            deliverServerTime(change.time);
            return true;
        }
    }
    Q_EMIT eventReceived(*event);
    return true;
}

void X11Connection::deliverServerTime(xcb_timestamp_t time)
{
    const PendingTime pending = std::move(m_times.front());
    m_times.pop_front();
    if (pending.owner)
        pending.handle(time);
}

void X11Connection::checkForClosing()
{
    if (!m_isOpen || xcb_connection_has_error(xcb()) == 0)
        return;
    m_isOpen = false;
    m_notifier.setEnabled(false);
    m_replies.clear();
    m_times.clear();
    qCCritical(x11ConnectionLog).noquote() << "The X server has closed the connection";
    Q_EMIT closed();
}

} // namespace driftbox
