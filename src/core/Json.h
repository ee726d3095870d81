#pragma once

#include "platform/Expected.h"
#include "platform/Instant.h"

#include <memory>
#include <optional>

#include <jansson.h>

#include <QtCore/QByteArray>
#include <QtCore/QString>

/// JSON with members in the order they were written and every solidus escaped, over Jansson.
namespace driftbox::Json {

struct Release
{
    void operator()(json_t* value) const { json_decref(value); }
};
/// An owned reference to a JSON value.
using Value = std::unique_ptr<json_t, Release>;

enum class Numbers {
    asReals,   ///< every number becomes a real, whatever its notation
    asWritten, ///< numbers without fraction and exponent become integers
};

/// Reads one array or object. An error names the place, but nothing of the text itself.
Expected<Value> parse(const QByteArray& text, Numbers numbers);

/// Compact text of an array or object.
[[nodiscard]] QByteArray compactText(const json_t& value);

[[nodiscard]] Value string(const QString& text);
[[nodiscard]] Value number(Instant instant);

/// Conversions; none when `value` is of another type, or null.
[[nodiscard]] std::optional<QString> toString(const json_t* value);
[[nodiscard]] std::optional<bool> toBool(const json_t* value);
[[nodiscard]] std::optional<double> toDouble(const json_t* value);
[[nodiscard]] std::optional<Instant> toInstant(const json_t* value);
/// From standard Base64.
[[nodiscard]] std::optional<QByteArray> toBytes(const json_t* value);
/// From the canonical text of an `Identifier`.
template <typename Id>
[[nodiscard]] std::optional<Id> toIdentifier(const json_t* value)
{
    const auto text = toString(value);
    return text ? Id::fromText(*text) : std::nullopt;
}

} // namespace driftbox::Json
