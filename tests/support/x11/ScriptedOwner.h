#pragma once

#include <functional>
#include <memory>

#include <QtCore/QByteArrayList>
#include <QtCore/QHash>
#include <QtCore/QObject>

#include <xcb/xcb.h>

namespace driftbox {

class X11Connection;

/// Another program that copies: an X client that owns a selection and answers as the test says.
/// What it has been told to do in a special way for a target goes before the formats that it has.
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

    QHash<QByteArray, QByteArray> formats; ///< what TARGETS lists and is answered with
    QHash<QByteArray, Answer> answers;     ///< by target; TARGETS too, and listed there
    qsizetype incrementSize = 0; ///< above zero, formats go out in increments of that size

    QByteArrayList asked; ///< the targets so far, in order

    /// Takes the selection.
    void take();
    /// Has no owner be the owner.
    void clear();
    /// Destroys the owning window; the program goes on.
    void destroyWindow();
    /// Ends as a program does.
    void end();
    [[nodiscard]] bool ownsSelection();

    /// The parts of an answer.
    void put(const Request& request, const QByteArray& type, int format, const QByteArray& bytes);
    void append(const Request& request, const QByteArray& bytes);
    void announceIncrements(const Request& request, std::uint32_t size);
    void notify(const Request& request);
    void refuse(const Request& request);
    /// Calls `deleted` whenever the requestor has taken what lies in the property.
    void whenTaken(const Request& request, const std::function<void()>& deleted);

    /// An answer that never comes.
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
