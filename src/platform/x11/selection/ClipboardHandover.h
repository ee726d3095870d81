#pragma once

#include <QtCore/QObject>

#include <xcb/xcb.h>

namespace driftbox {

class X11Connection;

/// Asks the desktop's clipboard manager, if there is one, to save what this program offers on
/// CLIPBOARD, so that it can be pasted after the program has ended. Main thread only.
class ClipboardHandover final : public QObject
{
    Q_OBJECT

public:
    /// Starts the handover once all previous requests have reached the server, provided that
    /// `owner`, a window of this connection, owns CLIPBOARD by then.
    ClipboardHandover(X11Connection& connection, xcb_window_t owner);
    ~ClipboardHandover() override;

Q_SIGNALS:
    /// The manager has saved the content, or there is no manager or nothing to save. Never emitted
    /// when the manager does not answer.
    void finished();

private:
    void requestOwner(xcb_timestamp_t time);
    void requestSaving(xcb_timestamp_t time);
    void handleEvent(const xcb_generic_event_t& event);

    X11Connection& m_connection;
    const xcb_window_t m_owner;
    const xcb_window_t m_requestor;
    const xcb_atom_t m_clipboard;
    const xcb_atom_t m_manager;
    const xcb_atom_t m_saveTargets;
};

} // namespace driftbox
