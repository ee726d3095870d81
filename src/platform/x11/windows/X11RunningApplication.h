#pragma once

#include "platform/Workspace.h"

#include <QtCore/QObject>
#include <QtCore/QPointer>

#include <xcb/xcb.h>

namespace driftbox {

class X11Connection;

/// A window of an application, and the process that it belongs to.
class X11RunningApplication final : public QObject, public RunningApplication
{
public:
    /// Looks up the application of `window`. Round trips. `connection` must outlive this.
    X11RunningApplication(X11Connection& connection, xcb_window_t window);

    [[nodiscard]] xcb_window_t window() const { return m_window; }

    [[nodiscard]] pid_t processIdentifier() const override { return m_processIdentifier; }
    [[nodiscard]] std::optional<QString> bundleIdentifier() const override
    {
        return m_bundleIdentifier;
    }
    /// A window that has had the keyboard focus has been launched.
    [[nodiscard]] bool isFinishedLaunching() const override { return true; }
    /// Round trip.
    [[nodiscard]] bool isTerminated() const override;
    void activate() override;
    void whenFocusKnown(QObject* owner, FocusAnswer answer) override;

private:
    struct Asker
    {
        QPointer<QObject> owner;
        FocusAnswer answer;
        void tell(Focus focus) const;
    };

    [[nodiscard]] bool hasProcessEnded() const;
    void askForFocus(const Asker& asker);
    void lookForOurWindow(xcb_window_t from, const Asker& asker);

    X11Connection& m_connection;
    const xcb_window_t m_window;
    const pid_t m_processIdentifier;
    const std::optional<QString> m_bundleIdentifier;
};

} // namespace driftbox
