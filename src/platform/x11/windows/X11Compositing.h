#pragma once

#include "platform/x11/connection/X11ManagerSelection.h"

namespace driftbox {

/// Whether a compositing manager blends the windows of the screen; they come and go. Main thread
/// only.
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
    X11ManagerSelection m_selection; ///< compositing managers own that of the screen they blend
};

} // namespace driftbox
