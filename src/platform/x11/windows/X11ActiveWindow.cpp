#include "platform/x11/windows/X11ActiveWindow.h"

#include "platform/x11/connection/X11Connection.h"

#include <memory>

#include <QtCore/QSize>

namespace driftbox {

X11ActiveWindow::X11ActiveWindow(X11Connection& connection)
    : m_connection(connection)
    , m_activeWindowAtom(connection.atom("_NET_ACTIVE_WINDOW"))
{
}

void X11ActiveWindow::deviceFrame(QObject* owner, Answer answer)
{
    const auto request = xcb_get_property(m_connection.xcb(), 0, m_connection.root(),
                                          m_activeWindowAtom, XCB_ATOM_WINDOW, 0, 1);
    m_connection.whenReplied<xcb_get_property_reply_t>(
        request.sequence, owner,
        [this, owner, answer = std::move(answer)](const xcb_get_property_reply_t* reply) {
            const bool isSet = reply && reply->type == XCB_ATOM_WINDOW && reply->format == 32 &&
                               reply->value_len == 1;
            const auto window =
                isSet ? *static_cast<const xcb_window_t*>(xcb_get_property_value(reply))
                      : xcb_window_t(XCB_NONE);
            if (window == XCB_NONE)
                answer(std::nullopt);
            else
                frameOf(window, owner, answer);
        });
}

void X11ActiveWindow::frameOf(xcb_window_t window, QObject* owner, const Answer& answer)
{
    // Replies arrive in the order of the requests.
    const auto size = std::make_shared<QSize>();
    const auto geometry = xcb_get_geometry(m_connection.xcb(), window);
    m_connection.whenReplied<xcb_get_geometry_reply_t>(
        geometry.sequence, owner, [size](const xcb_get_geometry_reply_t* reply) {
            if (reply)
                *size = QSize(reply->width, reply->height);
        });

    const auto position =
        xcb_translate_coordinates(m_connection.xcb(), window, m_connection.root(), 0, 0);
    m_connection.whenReplied<xcb_translate_coordinates_reply_t>(
        position.sequence, owner, [size, answer](const xcb_translate_coordinates_reply_t* reply) {
            if (reply && !size->isEmpty())
                answer(QRect(QPoint(reply->dst_x, reply->dst_y), *size));
            else
                answer(std::nullopt);
        });
}

} // namespace driftbox
