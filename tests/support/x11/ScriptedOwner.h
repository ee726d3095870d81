#pragma once

#include <functional>
#include <memory>

#include <QtCore/QByteArrayList>
#include <QtCore/QHash>
#include <QtCore/QObject>

#include <xcb/xcb.h>

namespace driftbox {

class X11Connection;

/// An X client that owns a selection and answers requests as configured by the test. `answers` take
/// precedence over `formats`.
class ScriptedOwner final : public QObject
{
public:
    struct Request
    {
        xcb_window_t requestor;
        xcb_atom_t selection;
        xcb_atom_t target;
        xcb_atom_t property;
        xcb_timestamp_t time;
    };
    using Answer = std::function<void(const Request&)>;

    explicit ScriptedOwner(QByteArray selection = "CLIPBOARD");
    ~ScriptedOwner() override;

    QHash<QByteArray, QByteArray> formats; ///< the contents by target, listed in TARGETS
    QHash<QByteArray, Answer> answers;     ///< by target, possibly TARGETS; listed in TARGETS, too
    qsizetype incrementSize = 0; ///< if positive, contents are sent in increments of this size

    QByteArrayList asked; ///< the requested targets so far, in order

    /// Becomes the owner of the selection.
    void take();
    /// Leaves the selection without an owner.
    void clear();
    /// Destroys the owner's window but keeps the connection.
    void destroyWindow();
    /// Closes the connection, as an exiting program does.
    void end();
    [[nodiscard]] bool ownsSelection();

    /// The building blocks of an answer.
    void put(const Request& request, const QByteArray& type, int format, const QByteArray& bytes);
    void append(const Request& request, const QByteArray& bytes);
    void announceIncrements(const Request& request, std::uint32_t size);
    void notify(const Request& request);
    void refuse(const Request& request);
    /// Calls `deleted` whenever the requestor deletes the property.
    void whenTaken(const Request& request, const std::function<void()>& deleted);

    /// An answer that does nothing, so that the request times out.
    [[nodiscard]] static Answer silence();

private:
    void handleEvent(const xcb_generic_event_t& event);
    void handleRequest(const Request& request);
    void answerTargets(const Request& request);
    void answerInIncrements(const Request& request, const QByteArray& type,
                            const QByteArray& bytes);
    void send(const Request& request, xcb_atom_t property);
    [[nodiscard]] QByteArray nameOf(xcb_atom_t atom);

    QByteArray m_selection;
    std::unique_ptr<X11Connection> m_connection;
    xcb_window_t m_window;
    QHash<xcb_atom_t, std::function<void()>> m_taken; ///< by property
};

} // namespace driftbox
