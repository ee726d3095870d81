#include "platform/x11/windows/X11StandardWindows.h"

#include "platform/x11/connection/QtXcb.h"

#include <QtCore/QEvent>
#include <QtGui/QCursor>
#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>

namespace driftbox {

namespace {

QRect centeredOnScreen(QSize size)
{
    const QScreen* screen = QGuiApplication::screenAt(QCursor::pos());
    if (screen == nullptr)
        screen = QGuiApplication::primaryScreen();
    const QRect available = screen->availableGeometry();
    QRect geometry(QPoint(), size.boundedTo(available.size()));
    geometry.moveCenter(available.center());
    return geometry;
}

} // namespace

X11StandardWindows::X11StandardWindows(X11Connection& connection)
    : m_windowManager(connection, QtXcb::connection())
{
}

void X11StandardWindows::center(QWindow& window)
{
    window.setGeometry(centeredOnScreen(window.size()));
}

void X11StandardWindows::present(QWindow& window)
{
    const xcb_timestamp_t now = QtXcb::noteUserAction();
    if (window.windowStates().testFlag(Qt::WindowMinimized))
        window.setWindowStates(window.windowStates() & ~Qt::WindowMinimized);
    window.show();
    window.raise();
    const auto id = static_cast<xcb_window_t>(window.winId());
    if (m_windowManager.isPresent()) {
        m_windowManager.activate(id, now);
    } else if (window.isExposed()) {
        m_windowManager.activateDirectly(id);
    } else {
        m_activatedOnceViewable = &window;
        window.installEventFilter(this);
    }
}

bool X11StandardWindows::eventFilter(QObject* receiver, QEvent* event)
{
    if (receiver == m_activatedOnceViewable && event->type() == QEvent::Expose &&
        m_activatedOnceViewable->isExposed()) {
        m_windowManager.activateDirectly(
            static_cast<xcb_window_t>(m_activatedOnceViewable->winId()));
        receiver->removeEventFilter(this);
        m_activatedOnceViewable.clear();
    }
    return false;
}

} // namespace driftbox
