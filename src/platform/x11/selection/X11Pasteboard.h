#pragma once

#include "platform/selection/PrefetchedPasteboard.h"
#include "platform/x11/selection/RequestorWindows.h"
#include "platform/x11/selection/SelectionOwner.h"
#include "platform/x11/selection/SelectionReader.h"

#include <memory>

#include <xcb/xfixes.h>

namespace driftbox {

/// The CLIPBOARD selection as the general pasteboard.
///
/// Copied content is fetched as soon as the server reports a new owner. When that owner terminates,
/// this program offers the fetched content, which stays unchanged; content that an owner withdraws
/// is lost, and secret content is never fetched.
class X11Pasteboard final : public PrefetchedPasteboard
{
    Q_OBJECT

public:
    /// All of them must outlive the pasteboard.
    X11Pasteboard(X11Connection& connection, Clock& clock, TaskRunner& taskRunner);
    ~X11Pasteboard() override;

    void write(const PasteboardContent& content) override;

    /// Has the desktop's clipboard manager, if there is one, save what this program offers, so that
    /// it outlives the program. To be called at shutdown: runs the event loop until that is done,
    /// for at most 300 ms.
    void handOver();

private:
    void internNames();
    [[nodiscard]] bool watchOwners();
    void readInitialContent();
    void handleEvent(const xcb_generic_event_t& event);
    void ownerChanged(const xcb_xfixes_selection_notify_event_t& change);
    void read(xcb_timestamp_t time);
    void readAfterRejection();
    void contentRead(const PasteboardContent& content);
    void readingFinished();
    void ownerVanished(xcb_timestamp_t time);
    void keepOffering(xcb_timestamp_t time);

    X11Connection& m_connection;
    Clock& m_clock;
    const xcb_atom_t m_clipboard;
    std::uint8_t m_ownerChange = 0; ///< the event number of owner changes
    RequestorWindows m_windows;
    SelectionOwner m_owner;
    std::unique_ptr<SelectionReader> m_reader; ///< of the current owner, if that is another program
    std::optional<xcb_timestamp_t> m_vanishedAt; ///< when the owner that is being read ended
    int m_pendingClaims = 0;                     ///< writes that have not reached the server yet
    bool m_isInitial = false;                    ///< the content being read was there at startup
};

} // namespace driftbox
