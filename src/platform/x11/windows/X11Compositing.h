#pragma once

#include "platform/x11/connection/X11ManagerSelection.h"

namespace driftbox {

/// Whether a compositing manager is running on the screen; it may start and stop at any time. Main
/// thread only.
class X11Compositing final : public QObject
{
    Q_OBJECT

public:
    /// Round trips. `connection` must outlive this.
    explicit X11Compositing(X11Connection& connection);

    [[nodiscard]] bool isActive() const { return m_selection.isOwned(); }

Q_SIGNALS:
    void changed(bool active);

private:
    X11ManagerSelection m_selection; ///< owned by the screen's compositing manager
};

} // namespace driftbox
