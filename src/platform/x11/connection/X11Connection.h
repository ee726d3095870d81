#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <span>

#include <QtCore/QByteArray>
#include <QtCore/QHash>
#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtCore/QSocketNotifier>

#include <xcb/xcb.h>

namespace driftbox {

/// The program's own connection to the X server, driven by the main event loop.
///
/// Main thread only. Events and replies are delivered from the event loop, never from within a
/// call, in slices of a few milliseconds; requests are sent at the latest before the event loop
/// blocks. Calls marked "round trip" block for the server's reply and are meant for the program's
/// startup; all others never block. When the server closes the connection this is logged once,
/// `closed` is emitted, nothing more is delivered, and requests have no effect.
class X11Connection final : public QObject
{
    Q_OBJECT

public:
    /// Connects to `display`, or to the display named by DISPLAY; null when that fails.
    [[nodiscard]] static std::unique_ptr<X11Connection> open(const QByteArray& display = {});
    /// Whether the server that DISPLAY names lets the program in. Needs no application object.
    [[nodiscard]] static bool isServerThere();
    ~X11Connection() override;

    [[nodiscard]] xcb_connection_t* xcb() const { return m_xcb.get(); }
    [[nodiscard]] const xcb_screen_t& screen() const { return *m_screen; }
    [[nodiscard]] xcb_window_t root() const { return m_screen->root; }
    [[nodiscard]] bool isOpen() const { return m_isOpen; }

    /// The atom of that name, cached. Round trip the first time.
    [[nodiscard]] xcb_atom_t atom(const QByteArray& name);
    /// Looks up all of the atoms in one round trip.
    void intern(std::span<const char* const> names);

    /// The extension's first event number; none when the server lacks it. Round trip the first
    /// time.
    [[nodiscard]] std::optional<std::uint8_t> firstEventOf(xcb_extension_t& extension) const;

    /// Calls `handle` with the reply to the request with that sequence number (a cookie's
    /// `sequence`), or with null when the server answered with an error. Not called once `owner`
    /// has been destroyed.
    template <typename Reply>
    void whenReplied(unsigned int sequence, QObject* owner,
                     std::function<void(const Reply*)> handle)
    {
        await(sequence, owner, [handle = std::move(handle)](const void* reply) {
            handle(static_cast<const Reply*>(reply));
        });
    }

    /// Calls `handle` with the server's time after all requests made so far. Not called once
    /// `owner` has been destroyed.
    void whenServerTimeKnown(QObject* owner, std::function<void(xcb_timestamp_t)> handle);

    /// Creates a window that is never mapped and reports these events. The caller destroys it.
    [[nodiscard]] xcb_window_t createHiddenWindow(std::uint32_t eventMask) const;

    /// Whether the window was created by this connection rather than another client.
    [[nodiscard]] bool hasCreated(xcb_window_t window) const;

    /// Simulates the press or release (XCB_KEY_PRESS, XCB_KEY_RELEASE) of a key.
    void fakeKey(std::uint8_t type, xcb_keycode_t code);
    /// Whether the event with this full sequence number was caused by `fakeKey`: events caused by a
    /// request carry the request's sequence number.
    [[nodiscard]] bool hasFaked(std::uint32_t sequence) const;

    /// Sends all requests made so far.
    void flush();

Q_SIGNALS:
    /// Emitted for every event except errors. The reference is valid during the emission only.
    void eventReceived(const xcb_generic_event_t& event);
    void closed();

private:
    struct Disconnect
    {
        void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
    };
    using Handle = std::unique_ptr<xcb_connection_t, Disconnect>;

    struct PendingReply
    {
        unsigned int sequence;
        QPointer<QObject> owner;
        std::function<void(const void*)> handle;
    };
    struct PendingTime
    {
        QPointer<QObject> owner;
        std::function<void(xcb_timestamp_t)> handle;
    };

    X11Connection(Handle xcb, int screenNumber);

    void await(unsigned int sequence, QObject* owner, std::function<void(const void*)> handle);
    void deliver();
    bool deliverNextReply();
    bool deliverNextEvent();
    void deliverServerTime(xcb_timestamp_t time);
    void checkForClosing();

    Handle m_xcb;
    xcb_screen_t* m_screen = nullptr;
    xcb_window_t m_helperWindow = XCB_NONE;
    QSocketNotifier m_notifier;
    QHash<QByteArray, xcb_atom_t> m_atoms;
    std::deque<PendingReply> m_replies;    ///< in the order of the requests
    std::deque<PendingTime> m_times;       ///< in the order of the requests
    std::deque<std::uint32_t> m_fakedKeys; ///< the latest requests that simulated a key
    bool m_isOpen = true;
};

} // namespace driftbox
