#include "clipboard/ClipboardManifest.h"

#include "core/EnumNames.h"
#include "core/Json.h"
#include "core/JsonRecords.h"

namespace driftbox::ClipboardManifest {

namespace {

using Kind = ClipboardItem::Kind;

constexpr EnumNames<Kind, 2> kinds{{{{Kind::text, u"text"}, {Kind::image, u"image"}}}};

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

template <typename Content>
bool isShared(const std::optional<Content>& one, const std::optional<Content>& other)
{
    if (!one || !other)
        return one.has_value() == other.has_value();
    return one->constData() == other->constData() && one->size() == other->size();
}

// Copies of an item share their content implicitly, so comparing pointers is enough.
bool isCopy(const ClipboardItem& one, const ClipboardItem& other)
{
    return one.id == other.id && one.kind == other.kind && one.createdAt == other.createdAt &&
           one.pinnedAt == other.pinnedAt && isShared(one.textContent, other.textContent) &&
           isShared(one.imageFileName, other.imageFileName) && isShared(one.rtfData, other.rtfData);
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
        const auto known = m_elements.constFind(item.id);
        // A foreign manifest may contain the same id several times.
        if (known != m_elements.cend() && isCopy(known->item, item))
            objects.push_back(known->text);
        else
            objects.push_back(ClipboardManifest::encode(item));
        elements.insert(item.id, {item, objects.back()});
    }
    m_elements = std::move(elements);
    return JsonRecords::join(objects);
}

Expected<std::vector<ClipboardItem>> decode(const QByteArray& text)
{
    std::vector<ClipboardItem> items;
    const auto read = JsonRecords::read(
        text, [&items](JsonFields& fields) { items.push_back(decodeItem(fields)); });
    if (!read)
        return read.error();
    return items;
}

} // namespace driftbox::ClipboardManifest
