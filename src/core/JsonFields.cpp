#include "core/JsonFields.h"

using namespace Qt::StringLiterals;

namespace driftbox {

JsonFields::JsonFields(const json_t* object)
    : m_object(object)
{
    if (!json_is_object(object))
        m_error = u"not an object"_s;
}

const json_t* JsonFields::member(const char* key) const
{
    const json_t* value = json_object_get(m_object, key);
    return json_is_null(value) ? nullptr : value;
}

void JsonFields::fail(const char* key, Problem problem)
{
    if (m_error.isEmpty())
        m_error = (problem == Problem::missing ? u"\"%1\" is missing"_s : u"\"%1\" is malformed"_s)
                      .arg(QString::fromUtf8(key));
}

} // namespace driftbox
