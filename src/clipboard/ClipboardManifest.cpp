#include "clipboard/ClipboardManifest.h"

#include "core/Json.h"
#include "core/JsonFields.h"
#include "core/RawValues.h"

using namespace Qt::StringLiterals;

namespace driftbox::ClipboardManifest {

namespace {

using Kind = ClipboardItem::Kind;

constexpr RawValues<Kind, 2> kinds{{{{Kind::text, u"text"}, {Kind::image, u"image"}}}};

ClipboardItem decodeItem(JsonFields& fields)
{
    ClipboardItem item;
    item.id = fields.required("id", &Json::toIdentifier<ClipboardItemId>).value_or(item.id);
    item.kind = fields
                    .required("kind",
                              [](const json_t* value) {
                                  return kinds.value(Json::toString(value).value_or(QString()));
                              })
                    .value_or(Kind::text);
    item.textContent = fields.optional("textContent", &Json::toString);
    item.imageFileName = fields.optional("imageFileName", &Json::toString);
    item.rtfData = fields.optional("rtfData", &Json::toBytes);
    item.createdAt = fields.required("createdAt", &Json::toInstant).value_or(Instant());
    item.pinnedAt = fields.optional("pinnedAt", &Json::toInstant);
    return item;
}

} // namespace

QByteArray encode(const ClipboardItem& item)
{
    const Json::Value object(json_object());
    const auto set = [&object](const char* key, Json::Value value) {
        json_object_set_new(object.get(), key, value.release());
    };
    set("id", Json::string(item.id.text()));
    set("kind", Json::string(kinds.name(item.kind)));
    if (item.textContent)
        set("textContent", Json::string(*item.textContent));
    if (item.imageFileName)
        set("imageFileName", Json::string(*item.imageFileName));
    if (item.rtfData)
        set("rtfData", Json::string(QString::fromLatin1(item.rtfData->toBase64())));
    set("createdAt", Json::number(item.createdAt));
    if (item.pinnedAt)
        set("pinnedAt", Json::number(*item.pinnedAt));
    return Json::compactText(*object);
}

QByteArray Writer::encode(const std::vector<ClipboardItem>& items)
{
    QHash<ClipboardItemId, Element> elements;
    elements.reserve(static_cast<qsizetype>(items.size()));
    qsizetype size = 2;
    for (const ClipboardItem& item : items) {
        Element element = m_elements.take(item.id);
        if (element.text.isEmpty() || element.pinnedAt != item.pinnedAt)
            element = {item.pinnedAt, ClipboardManifest::encode(item)};
        size += element.text.size() + 1;
        elements.insert(item.id, std::move(element));
    }
    m_elements = std::move(elements);

    QByteArray text;
    text.reserve(size);
    text += '[';
    for (const ClipboardItem& item : items) {
        if (text.size() > 1)
            text += ',';
        text += m_elements[item.id].text;
    }
    return text += ']';
}

Decoded decode(const QByteArray& text)
{
    const Json::Parsed parsed = Json::parse(text, Json::Numbers::asReals);
    if (!parsed.value)
        return {{}, parsed.error};
    if (!json_is_array(parsed.value.get()))
        return {{}, u"not an array"_s};

    Decoded decoded;
    const size_t count = json_array_size(parsed.value.get());
    decoded.items.reserve(count);
    for (size_t index = 0; index < count; ++index) {
        JsonFields fields(json_array_get(parsed.value.get(), index));
        decoded.items.push_back(decodeItem(fields));
        if (!fields.error().isEmpty())
            return {{}, u"item %1: %2"_s.arg(index).arg(fields.error())};
    }
    return decoded;
}

} // namespace driftbox::ClipboardManifest
