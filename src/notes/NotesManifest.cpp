#include "notes/NotesManifest.h"

#include "core/EnumNames.h"
#include "core/Json.h"
#include "core/JsonRecords.h"

namespace driftbox::NotesManifest {

namespace {

using Kind = StickyNote::Kind;

constexpr EnumNames<Kind, 2> kinds{{{{Kind::text, u"text"}, {Kind::image, u"image"}}}};

std::optional<Kind> toKind(const json_t* value)
{
    return kinds.value(Json::toString(value).value_or(QString()));
}

std::optional<NoteColor> toColor(const json_t* value)
{
    return noteColorFromRawValue(Json::toString(value).value_or(QString()));
}

std::optional<NoteFrame> toFrame(const json_t* value)
{
    JsonFields fields(value);
    const auto number = [&fields](const char* key) {
        return fields.required(key, &Json::toDouble).value_or(0);
    };
    const NoteFrame frame{number("x"), number("y"), number("width"), number("height")};
    return fields.error().isEmpty() ? std::optional(frame) : std::nullopt;
}

StickyNote decodeNote(JsonFields& fields)
{
    StickyNote note;
    note.id = fields.required("id", &Json::toIdentifier<StickyNoteId>).value_or(note.id);
    note.kind = fields.required("kind", &toKind).value_or(note.kind);
    note.textContent = fields.optional("textContent", &Json::toString);
    note.imageFileName = fields.optional("imageFileName", &Json::toString);
    note.color = fields.required("color", &toColor).value_or(note.color);
    note.frame = fields.required("frame", &toFrame).value_or(note.frame);
    note.zoom = fields.optional("zoom", &Json::toDouble).value_or(note.zoom);
    note.isSaved = fields.optional("isSaved", &Json::toBool).value_or(note.isSaved);
    note.createdAt = fields.required("createdAt", &Json::toInstant).value_or(note.createdAt);
    note.updatedAt = fields.required("updatedAt", &Json::toInstant).value_or(note.updatedAt);
    return note;
}

void set(const Json::Value& object, const char* key, Json::Value value)
{
    json_object_set_new(object.get(), key, value.release());
}

Json::Value number(double value)
{
    return Json::Value(json_real(value));
}

Json::Value object(const NoteFrame& frame)
{
    Json::Value object(json_object());
    set(object, "x", number(frame.x));
    set(object, "y", number(frame.y));
    set(object, "width", number(frame.width));
    set(object, "height", number(frame.height));
    return object;
}

} // namespace

QByteArray encode(const StickyNote& note)
{
    const Json::Value element(json_object());
    set(element, "id", Json::string(note.id.text()));
    set(element, "kind", Json::string(kinds.name(note.kind)));
    if (note.textContent)
        set(element, "textContent", Json::string(*note.textContent));
    if (note.imageFileName)
        set(element, "imageFileName", Json::string(*note.imageFileName));
    set(element, "color", Json::string(rawValue(note.color)));
    set(element, "frame", object(note.frame));
    set(element, "zoom", number(note.zoom));
    set(element, "isSaved", Json::Value(json_boolean(note.isSaved)));
    set(element, "createdAt", Json::number(note.createdAt));
    set(element, "updatedAt", Json::number(note.updatedAt));
    return Json::compactText(*element);
}

Expected<std::vector<StickyNote>> decode(const QByteArray& text)
{
    std::vector<StickyNote> notes;
    const auto read = JsonRecords::read(
        text, [&notes](JsonFields& fields) { notes.push_back(decodeNote(fields)); });
    if (!read)
        return read.error();
    return notes;
}

} // namespace driftbox::NotesManifest
