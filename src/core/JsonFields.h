#pragma once

#include "core/Json.h"

#include <QtCore/QString>

namespace driftbox {

/// Reads the members of one JSON object: in any order, ignoring unknown members, but with strict
/// types. `error` names the first member that is missing or of the wrong type.
class JsonFields
{
public:
    /// `object` is not owned and must outlive this. Anything but an object is an error.
    explicit JsonFields(const json_t* object);

    [[nodiscard]] const QString& error() const { return m_error; }

    /// `convert` takes a `const json_t*` and returns an optional: nullopt for a value of the wrong
    /// type.
    template <typename Convert>
    auto required(const char* key, Convert convert) -> decltype(convert(nullptr))
    {
        const json_t* value = member(key);
        if (!value) {
            fail(key, Problem::missing);
            return {};
        }
        return converted(key, value, convert);
    }

    /// Nullopt without an error if the member is absent or null.
    template <typename Convert>
    auto optional(const char* key, Convert convert) -> decltype(convert(nullptr))
    {
        const json_t* value = member(key);
        return value ? converted(key, value, convert) : decltype(convert(nullptr)){};
    }

private:
    enum class Problem { missing, malformed };

    [[nodiscard]] const json_t* member(const char* key) const;
    void fail(const char* key, Problem problem);

    template <typename Convert>
    auto converted(const char* key, const json_t* value, Convert convert)
    {
        auto result = convert(value);
        if (!result)
            fail(key, Problem::malformed);
        return result;
    }

    const json_t* m_object;
    QString m_error;
};

} // namespace driftbox
