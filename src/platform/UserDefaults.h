#pragma once

#include <optional>
#include <variant>

#include <QtCore/QString>

namespace driftbox {

/// A stored setting in the type it was stored as.
using DefaultsValue = std::variant<bool, qint64, double, QString>;

/// The user's settings as a typed store of keys and values. Main thread only.
class UserDefaults
{
public:
    UserDefaults() = default;
    UserDefaults(const UserDefaults&) = delete;
    UserDefaults& operator=(const UserDefaults&) = delete;
    virtual ~UserDefaults() = default;

    /// None when the key is absent or holds something that is not one of the types.
    [[nodiscard]] virtual std::optional<DefaultsValue> value(const QString& key) const = 0;

    /// Stores at once. When that fails a log line says so and memory keeps the value.
    virtual void setValue(const QString& key, const DefaultsValue& value) = 0;
};

} // namespace driftbox
