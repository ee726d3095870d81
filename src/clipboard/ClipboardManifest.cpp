#include "clipboard/ClipboardManifest.h"

#include "core/Json.h"
#include "core/JsonRecords.h"
#include "core/RawValues.h"

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
    std::vector<QByteArray> objects;
    objects.reserve(items.size());
    for (const ClipboardItem& item : items) {
        Element element = m_elements.take(item.id);
        if (element.text.isEmpty() || element.pinnedAt != item.pinnedAt)
            element = {item.pinnedAt, ClipboardManifest::encode(item)};
        objects.push_back(element.text);
        elements.insert(item.id, element);
    }
    m_elements = std::move(elements);
    return JsonRecords::join(objects);
}

Decoded decode(const QByteArray& text)
{
    Decoded decoded;
    decoded.error = JsonRecords::read(
        text, [&decoded](JsonFields& fields) { decoded.items.push_back(decodeItem(fields)); });
    if (!decoded.error.isEmpty())
        decoded.items.clear();
    return decoded;
}

} // namespace driftbox::ClipboardManifest
