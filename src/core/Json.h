#pragma once

#include "platform/Expected.h"
#include "platform/Instant.h"

#include <memory>
#include <optional>

#include <jansson.h>

#include <QtCore/QByteArray>
#include <QtCore/QString>

/// JSON on top of Jansson. Members keep their insertion order; every solidus is escaped.
namespace driftbox::Json {

struct Release
{
    void operator()(json_t* value) const { json_decref(value); }
};
/// An owned reference to a JSON value.
using Value = std::unique_ptr<json_t, Release>;

enum class Numbers {
    asReals,   ///< every number becomes a real
    asWritten, ///< numbers without a fraction or exponent become integers
};

/// Parses one array or object. The error has the reason and the position, without any of the text.
Expected<Value> parse(const QByteArray& text, Numbers numbers);

/// Serializes an array or object without white space.
[[nodiscard]] QByteArray compactText(const json_t& value);

[[nodiscard]] Value string(const QString& text);
[[nodiscard]] Value number(Instant instant);

/// Conversions; nullopt if `value` is null or of another type.
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
