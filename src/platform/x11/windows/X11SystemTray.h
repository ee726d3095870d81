#pragma once

#include "platform/StatusArea.h"
#include "platform/x11/connection/X11ManagerSelection.h"

#include <memory>

namespace driftbox {

/// The system tray that embeds the icon windows of programs.
class X11SystemTray final : public StatusArea
{
    Q_OBJECT

public:
    /// `connection` must outlive this.
    explicit X11SystemTray(X11Connection& connection, QObject* parent = nullptr);

    void watch() override;

private:
    X11Connection& m_connection;
    std::unique_ptr<X11ManagerSelection> m_selection;
};

} // namespace driftbox
