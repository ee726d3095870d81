#pragma once

#include <QtCore/QObject>

#include <xcb/xcb.h>

namespace driftbox {

class X11Connection;

/// Asks the desktop's clipboard manager, where there is one, to keep what this program offers on
/// CLIPBOARD, so that it can be pasted when this program is gone. Main thread only.
class ClipboardHandover final : public QObject
{
    Q_OBJECT

public:
    /// Asks once what was written before has reached the server, if `owner`, a window of this
    /// connection, owns CLIPBOARD then.
    ClipboardHandover(X11Connection& connection, xcb_window_t owner);
    ~ClipboardHandover() override;

Q_SIGNALS:
    /// The manager has taken what it wanted, or there is nobody to ask or nothing to keep. Never
    /// emitted when the manager does not answer.
    void finished();

private:
    void askForOwner(xcb_timestamp_t time);
    void askManager(xcb_timestamp_t time);
    void handleEvent(const xcb_generic_event_t& event);

    X11Connection& m_connection;
    const xcb_window_t m_owner;
    const xcb_window_t m_requestor;
    const xcb_atom_t m_clipboard;
    const xcb_atom_t m_manager;
    const xcb_atom_t m_saveTargets;
};

} // namespace driftbox
