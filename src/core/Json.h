#pragma once

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

struct Parsed
{
    Value value;   ///< null when the text is no JSON
    QString error; ///< why, then
};

enum class Numbers {
    asReals,   ///< every number becomes a real, whatever its notation
    asWritten, ///< numbers without fraction and exponent become integers
};

/// Reads one array or object.
[[nodiscard]] Parsed parse(const QByteArray& text, Numbers numbers);

/// Compact text. Empty when `value` holds something that JSON cannot express.
[[nodiscard]] QByteArray compactText(const json_t& value);

[[nodiscard]] Value string(const QString& text);

/// None when `value` is not a string.
[[nodiscard]] std::optional<QString> toString(const json_t* value);

/// The member of `object` named `key`; null when it is absent or JSON null.
[[nodiscard]] const json_t* member(const json_t& object, const char* key);

} // namespace driftbox::Json
