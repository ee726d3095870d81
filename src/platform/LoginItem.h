#pragma once

#include "platform/Expected.h"

#include <QtCore/QtGlobal>

namespace driftbox {

/// The program's entry among those that the session starts at login. Main thread only.
class LoginItem
{
public:
    LoginItem() = default;
    Q_DISABLE_COPY_MOVE(LoginItem)
    virtual ~LoginItem() = default;

    virtual Expected<void> registerItem() = 0;
    /// Also succeeds when there is no item.
    virtual Expected<void> unregisterItem() = 0;
};

} // namespace driftbox
