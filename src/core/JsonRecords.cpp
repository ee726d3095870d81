#include "core/JsonRecords.h"

#include "core/Json.h"

#include <numeric>

using namespace Qt::StringLiterals;

namespace driftbox::JsonRecords {

Expected<void> read(const QByteArray& text, const std::function<void(JsonFields&)>& read)
{
    const auto array = Json::parse(text, Json::Numbers::asReals);
    if (!array)
        return array.error();
    if (!json_is_array(array->get()))
        return Error{u"not an array"_s};

    const size_t count = json_array_size(array->get());
    for (size_t index = 0; index < count; ++index) {
        JsonFields fields(json_array_get(array->get(), index));
        read(fields);
        if (!fields.error().isEmpty())
            return Error{u"item %1: %2"_s.arg(index).arg(fields.error())};
    }
    return {};
}

QByteArray join(const std::vector<QByteArray>& objects)
{
    const auto bytes = std::accumulate(
        objects.begin(), objects.end(), qsizetype(2),
        [](qsizetype sum, const QByteArray& object) { return sum + object.size() + 1; });
    QByteArray text;
    text.reserve(bytes);
    text += '[';
    for (const QByteArray& object : objects) {
        if (text.size() > 1)
            text += ',';
        text += object;
    }
    return text += ']';
}

} // namespace driftbox::JsonRecords
