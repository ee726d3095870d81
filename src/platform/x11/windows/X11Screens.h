#pragma once

#include "platform/Screens.h"

namespace driftbox {

class X11Connection;

/// The toolkit's screens, each without the struts of its panels and docks. Main thread only.
class X11Screens final : public Screens
{
    Q_OBJECT

public:
    /// The application object must run on X11. `connection` must outlive this.
    explicit X11Screens(X11Connection& connection, QObject* parent = nullptr);

    /// Round trips.
    [[nodiscard]] std::vector<Screen> screens() const override;
    /// Round trip.
    [[nodiscard]] QPointF mouseLocation() const override;

private:
    X11Connection& m_connection;
};

} // namespace driftbox
