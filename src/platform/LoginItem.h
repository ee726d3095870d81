#pragma once

#include <optional>

#include <QtCore/QString>

namespace driftbox {

/// The program's place among what the session starts when the user logs in. Main thread only.
class LoginItem
{
public:
    LoginItem() = default;
    LoginItem(const LoginItem&) = delete;
    LoginItem& operator=(const LoginItem&) = delete;
    virtual ~LoginItem() = default;

    /// Both return a description of what went wrong, or none when it worked.
    [[nodiscard]] virtual std::optional<QString> registerItem() = 0;
    [[nodiscard]] virtual std::optional<QString> unregisterItem() = 0;
};

} // namespace driftbox
