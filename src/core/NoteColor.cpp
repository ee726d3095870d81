#include "core/NoteColor.h"

#include "core/RawValues.h"

namespace driftbox {

namespace {
constexpr RawValues<NoteColor, 4> names{{{
    {NoteColor::yellow, u"yellow"},
    {NoteColor::blue, u"blue"},
    {NoteColor::green, u"green"},
    {NoteColor::pink, u"pink"},
}}};
}

QString rawValue(NoteColor color)
{
    return names.name(color);
}

std::optional<NoteColor> noteColorFromRawValue(QStringView name)
{
    return names.value(name);
}

} // namespace driftbox
