#include "core/NoteColor.h"

#include "core/EnumNames.h"

namespace driftbox {

namespace {
constexpr EnumNames<NoteColor, 4> colorNames{{{
    {NoteColor::yellow, u"yellow"},
    {NoteColor::blue, u"blue"},
    {NoteColor::green, u"green"},
    {NoteColor::pink, u"pink"},
}}};
}

QString rawValue(NoteColor color)
{
    return colorNames.name(color);
}

QString displayName(NoteColor color)
{
    QString name = rawValue(color);
    name.front() = name.front().toUpper();
    return name;
}

std::optional<NoteColor> noteColorFromRawValue(QStringView name)
{
    return colorNames.value(name);
}

} // namespace driftbox
