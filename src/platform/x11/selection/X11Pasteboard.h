#pragma once

#include "platform/Pasteboard.h"
#include "platform/x11/selection/RequestorWindows.h"
#include "platform/x11/selection/SelectionOwner.h"
#include "platform/x11/selection/SelectionReader.h"

#include <memory>

#include <xcb/xfixes.h>

namespace driftbox {

/// The CLIPBOARD selection as the general pasteboard.
///
/// What another program copies is fetched as soon as the server tells of the new owner. When that
/// program ends, this one offers what it had fetched, and the content stays as it is; what an owner
/// takes back itself is gone, and nothing secret is ever fetched.
class X11Pasteboard final : public Pasteboard
{
    Q_OBJECT

public:
    /// All of them must outlive the pasteboard.
    X11Pasteboard(X11Connection& connection, Clock& clock, TaskRunner& taskRunner);
    ~X11Pasteboard() override;

    [[nodiscard]] qint64 changeCount() const override { return m_changeCount; }
    [[nodiscard]] PasteboardContent content() const override { return m_content; }
    void write(const PasteboardContent& content) override;

    /// Lets the desktop's clipboard manager, where there is one, take what this program offers, so
    /// that it outlives the program. For the end of the program: the event loop runs until that is
    /// done, for at most 300 ms.
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
    void setContent(const PasteboardContent& content);
    void ownerVanished(xcb_timestamp_t time);
    void keepOffering(xcb_timestamp_t time);

    X11Connection& m_connection;
    Clock& m_clock;
    TaskRunner& m_taskRunner;
    const xcb_atom_t m_clipboard;
    std::uint8_t m_ownerChange = 0; ///< the number of the event that tells of one
    RequestorWindows m_windows;
    SelectionOwner m_owner;
    std::unique_ptr<SelectionReader> m_reader; ///< of the present owner, when it is another program
    std::optional<xcb_timestamp_t> m_vanished; ///< when the owner ended that is being read
    PasteboardContent m_content;
    OpaqueFormats m_opaque;
    qint64 m_changeCount = 0;
    int m_claimsUnderWay = 0; ///< writes that the server has not heard of yet
    bool m_isInitial = false; ///< what is being read was there at the start
};

} // namespace driftbox
