#pragma once

#include <optional>
#include <variant>

#include <QtCore/QString>

namespace driftbox {

/// A setting in the type in which it was stored.
using DefaultsValue = std::variant<bool, qint64, double, QString>;

/// The user's settings as a typed key-value store. Main thread only.
class UserDefaults
{
public:
    UserDefaults() = default;
    Q_DISABLE_COPY_MOVE(UserDefaults)
    virtual ~UserDefaults() = default;

    /// None when the key is absent or its value has an unsupported type.
    [[nodiscard]] virtual std::optional<DefaultsValue> value(const QString& key) const = 0;

    /// Stores the value at once. A failure is logged, and the value is kept in memory.
    virtual void setValue(const QString& key, const DefaultsValue& value) = 0;
};

} // namespace driftbox
