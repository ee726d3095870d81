#include "platform/x11/selection/X11Pasteboard.h"

#include "platform/Clock.h"
#include "platform/x11/connection/X11Connection.h"
#include "platform/x11/selection/ClipboardHandover.h"

#include <chrono>
#include <memory>
#include <utility>

#include <QtCore/QEventLoop>
#include <QtCore/QLoggingCategory>

namespace driftbox {

namespace {

Q_LOGGING_CATEGORY(x11PasteboardLog, "X11Pasteboard")

// A slower manager may be frozen and must not delay quitting.
constexpr std::chrono::milliseconds handoverTimeout{300};

} // namespace

X11Pasteboard::X11Pasteboard(X11Connection& connection, Clock& clock, TaskRunner& taskRunner)
    : PrefetchedPasteboard(taskRunner)
    , m_connection(connection)
    , m_clock(clock)
    , m_clipboard(connection.atom("CLIPBOARD"))
    , m_windows(connection, clock)
    , m_owner(connection, clock, "CLIPBOARD")
{
    internNames();
    connect(&m_owner, &SelectionOwner::claimRejected, this, &X11Pasteboard::readAfterRejection);
    if (!watchOwners()) {
        qCWarning(x11PasteboardLog).noquote() << "The X server does not tell who copies";
        return;
    }
    connect(&connection, &X11Connection::eventReceived, this, &X11Pasteboard::handleEvent);
    readInitialContent();
}

X11Pasteboard::~X11Pasteboard() = default;

// One round trip at startup avoids later ones, when another client may hold a server grab.
void X11Pasteboard::internNames()
{
    std::vector<const char*> names{"TARGETS", "MULTIPLE",          "TIMESTAMP",   "INCR",
                                   "TEXT",    "CLIPBOARD_MANAGER", "SAVE_TARGETS"};
    for (const QByteArray& name : PasteboardTargets::knownNames())
        names.push_back(name.constData());
    m_connection.intern(names);
}

bool X11Pasteboard::watchOwners()
{
    const auto firstEvent = m_connection.firstEventOf(xcb_xfixes_id);
    if (!firstEvent)
        return false;
    m_ownerChange = *firstEvent + XCB_XFIXES_SELECTION_NOTIFY;
    // The extension requires clients to negotiate a version first.
    const auto version = xcb_xfixes_query_version(m_connection.xcb(), 1, 0);
    xcb_discard_reply(m_connection.xcb(), version.sequence);
    xcb_xfixes_select_selection_input(m_connection.xcb(), m_owner.window(), m_clipboard,
                                      XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER |
                                          XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_WINDOW_DESTROY |
                                          XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_CLIENT_CLOSE);
    return true;
}

void X11Pasteboard::readInitialContent()
{
    m_isInitial = true;
    m_connection.whenReplied<xcb_get_selection_owner_reply_t>(
        xcb_get_selection_owner(m_connection.xcb(), m_clipboard).sequence, this,
        [this](const xcb_get_selection_owner_reply_t* reply) {
            const bool isThere = reply != nullptr && reply->owner != XCB_NONE;
            if (m_isInitial && !m_reader && isThere)
                read(XCB_CURRENT_TIME);
        });
}

void X11Pasteboard::handleEvent(const xcb_generic_event_t& event)
{
    if (event.response_type != m_ownerChange)
        return;
    const auto& change = reinterpret_cast<const xcb_xfixes_selection_notify_event_t&>(event);
    // A client that claims the selection before a pending write reaches the server loses it to that
    // write.
    if (change.selection == m_clipboard && m_pendingClaims == 0)
        ownerChanged(change);
}

void X11Pasteboard::ownerChanged(const xcb_xfixes_selection_notify_event_t& change)
{
    if (change.subtype != XCB_XFIXES_SELECTION_EVENT_SET_SELECTION_OWNER)
        return ownerVanished(change.timestamp);
    m_vanishedAt.reset();
    m_reader.reset();
    if (change.owner == m_owner.window())
        return;
    m_isInitial = false;
    if (change.owner == XCB_NONE)
        setContent({});
    else
        read(change.timestamp);
}

void X11Pasteboard::read(xcb_timestamp_t time)
{
    m_reader = std::make_unique<SelectionReader>(
        SelectionReader::Services{m_connection, m_clock, taskRunner(), m_windows}, m_clipboard,
        time);
    connect(m_reader.get(), &SelectionReader::contentRead, this, &X11Pasteboard::contentRead);
    connect(m_reader.get(), &SelectionReader::opaqueFormatRead, this,
            [this](const QByteArray& target, const QByteArray& bytes) {
                keepOpaqueFormat(target, bytes);
            });
    connect(m_reader.get(), &SelectionReader::finished, this, &X11Pasteboard::readingFinished);
}

void X11Pasteboard::readAfterRejection()
{
    if (!m_reader)
        read(XCB_CURRENT_TIME);
}

void X11Pasteboard::contentRead(const PasteboardContent& content)
{
    if (m_isInitial) {
        m_isInitial = false;
        setInitialContent(content);
    } else {
        setContent(content);
    }
}

void X11Pasteboard::readingFinished()
{
    if (m_vanishedAt)
        keepOffering(*std::exchange(m_vanishedAt, std::nullopt));
}

void X11Pasteboard::ownerVanished(xcb_timestamp_t time)
{
    if (m_reader && !m_reader->isFinished()) {
        m_vanishedAt = time;
        m_reader->ownerHasVanished();
    } else {
        keepOffering(time);
    }
}

void X11Pasteboard::keepOffering(xcb_timestamp_t time)
{
    if (!isBlank())
        m_owner.claim(OfferedContent(content(), opaqueFormats()), time);
}

void X11Pasteboard::write(const PasteboardContent& content)
{
    m_reader.reset();
    m_vanishedAt.reset();
    m_isInitial = false;
    setContent(content);
    ++m_pendingClaims;
    m_connection.whenServerTimeKnown(this, [this](xcb_timestamp_t time) {
        --m_pendingClaims;
        m_owner.claim(OfferedContent(this->content()), time);
    });
}

void X11Pasteboard::handOver()
{
    if (!m_connection.isOpen())
        return;
    QEventLoop waiting;
    const ClipboardHandover handover(m_connection, m_owner.window());
    connect(&handover, &ClipboardHandover::finished, &waiting, &QEventLoop::quit);
    m_clock.after(handoverTimeout, &waiting, [&waiting] {
        qCWarning(x11PasteboardLog).noquote() << "The clipboard manager does not answer";
        waiting.quit();
    });
    waiting.exec(QEventLoop::ExcludeUserInputEvents);
}

} // namespace driftbox
