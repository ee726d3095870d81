#pragma once

#include <memory>

#include <QtCore/QByteArrayList>
#include <QtCore/QObject>

#include <xcb/xcb.h>

namespace driftbox {

class X11Connection;

/// Another program that pastes: an X client that asks for a selection step by step, as the test
/// says.
class ScriptedRequestor final : public QObject
{
public:
    struct Value
    {
        QByteArray type; ///< empty when there is no such property
        int format = 0;
        QByteArray bytes;
    };

    ScriptedRequestor();
    ~ScriptedRequestor() override;

    /// Asks for the target; the answer is to go to the property of the same name.
    void ask(const QByteArray& target, const QByteArray& selection = "CLIPBOARD");
    /// Asks for several at once; each answer goes to the property "FOR_" and its target.
    void askForMultiple(const QByteArrayList& targets);
    /// Asks as programs did before the conventions, which name no property.
    void askWithoutProperty(const QByteArray& target);
    /// Asks in the name of a window that is not this program's.
    void askInTheNameOf(xcb_window_t window, const QByteArray& target);

    /// The targets that were answered so far, each with "refused" where it was.
    QByteArrayList answers;

    /// Reads a property of this program's window and deletes it.
    [[nodiscard]] Value take(const QByteArray& property);
    /// Goes on taking increments from the property until the empty one.
    void takeIncrements(const QByteArray& property);

    QByteArray increments;  ///< those taken so far
    int incrementCount = 0; ///< the empty one included
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
    QByteArray m_incremental; ///< the property whose increments are being taken
};

} // namespace driftbox
