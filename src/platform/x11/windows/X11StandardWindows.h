#pragma once

#include "platform/StandardWindows.h"
#include "platform/x11/windows/X11WindowManager.h"

#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtGui/QWindow>

namespace driftbox {

class X11Connection;

/// The program's ordinary windows on X11. Main thread only.
class X11StandardWindows final : public QObject, public StandardWindows
{
    Q_OBJECT

public:
    /// The application object must run on X11. `connection` must outlive this.
    explicit X11StandardWindows(X11Connection& connection);

    void center(QWindow& window) override;
    void present(QWindow& window) override;

    bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    X11WindowManager m_windowManager;
    QPointer<QWindow> m_activatedOnceViewable; ///< without a window manager
};

} // namespace driftbox
