#pragma once

#include <memory>

#include <QtCore/QByteArrayList>
#include <QtCore/QObject>

#include <xcb/xcb.h>

namespace driftbox {

class X11Connection;

/// An X client that requests a selection step by step, as controlled by the test.
class ScriptedRequestor final : public QObject
{
public:
    struct Value
    {
        QByteArray type; ///< empty if there is no such property
        int format = 0;
        QByteArray bytes;
    };

    ScriptedRequestor();
    ~ScriptedRequestor() override;

    /// Requests a target; the answer goes to the property of the same name.
    void ask(const QByteArray& target, const QByteArray& selection = "CLIPBOARD");
    /// Requests several targets at once; each answer goes to the property "FOR_" plus its target.
    void askForMultiple(const QByteArrayList& targets);
    /// Sends an obsolete request that names no property.
    void askWithoutProperty(const QByteArray& target);
    /// Sends a request on behalf of another client's window.
    void askInTheNameOf(xcb_window_t window, const QByteArray& target);

    /// The targets answered so far, followed by " refused" where the request was refused.
    QByteArrayList answers;

    /// Reads and deletes a property of this client's window.
    [[nodiscard]] Value take(const QByteArray& property);
    /// Reads increments from the property until the empty one.
    void takeIncrements(const QByteArray& property);

    QByteArray increments;  ///< the data read so far
    int incrementCount = 0; ///< including the empty one
    bool hasTakenLastIncrement = false;

    void destroyWindow();
    [[nodiscard]] QByteArray nameOf(xcb_atom_t atom);
    [[nodiscard]] QByteArrayList namesOf(const QByteArray& atoms);

private:
    void handleEvent(const xcb_generic_event_t& event);
    void handleNotification(const xcb_selection_notify_event_t& notification);
    void takeIncrement();
    void convert(xcb_window_t window, const QByteArray& selection, const QByteArray& target,
                 xcb_atom_t property);

    std::unique_ptr<X11Connection> m_connection;
    xcb_window_t m_window;
    QByteArray m_incremental; ///< the property whose increments are being read
};

} // namespace driftbox
