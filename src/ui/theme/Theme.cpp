#include "ui/theme/Theme.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QPalette>

namespace driftbox::Theme {

namespace {

QColor paletteColor(QPalette::ColorRole role)
{
    return QGuiApplication::palette().color(QPalette::Active, role);
}

} // namespace

bool isDark()
{
    return panelBackground().lightnessF() < 0.5F;
}

QColor accent()
{
    return paletteColor(QPalette::Link);
}

QColor pinOn()
{
    return isDark() ? QColor(0xff, 0x9f, 0x0a) : QColor(0xf0, 0x86, 0x00);
}

QColor destructive()
{
    return isDark() ? QColor(0xff, 0x69, 0x61) : QColor(0xd7, 0x28, 0x2f);
}

QColor panelBackground()
{
    return paletteColor(QPalette::Window);
}

QColor primary()
{
    return paletteColor(QPalette::WindowText);
}

QColor secondary()
{
    return isDark() ? QColor(0xa6, 0xa6, 0xae) : QColor(0x62, 0x62, 0x6a);
}

QColor tertiary()
{
    return isDark() ? QColor(0x80, 0x80, 0x89) : QColor(0x82, 0x82, 0x8b);
}

QColor divider()
{
    return withOpacity(primary(), isDark() ? 0.14 : 0.12);
}

QColor hoverFill()
{
    return withOpacity(primary(), 0.08);
}

QColor withOpacity(QColor color, qreal opacity)
{
    color.setAlphaF(static_cast<float>(color.alphaF() * opacity));
    return color;
}

QColor mixed(const QColor& from, const QColor& to, qreal share)
{
    const auto channel = [share](float a, float b) {
        return a + (b - a) * static_cast<float>(share);
    };
    return QColor::fromRgbF(channel(from.redF(), to.redF()), channel(from.greenF(), to.greenF()),
                            channel(from.blueF(), to.blueF()), channel(from.alphaF(), to.alphaF()));
}

QColor noteSwatch(NoteColor color)
{
    switch (color) {
    case NoteColor::yellow:
        return QColor::fromRgbF(1.0F, 0.95F, 0.68F);
    case NoteColor::blue:
        return QColor::fromRgbF(0.74F, 0.87F, 1.0F);
    case NoteColor::green:
        return QColor::fromRgbF(0.8F, 0.93F, 0.74F);
    case NoteColor::pink:
        return QColor::fromRgbF(1.0F, 0.82F, 0.87F);
    }
    Q_UNREACHABLE();
}

QFont systemFont(int size, QFont::Weight weight)
{
    QFont font = QGuiApplication::font();
    font.setPixelSize(size);
    font.setWeight(weight);
    return font;
}

QFont Font::rowTitle()
{
    return systemFont(13);
}

QFont Font::rowMeta()
{
    return systemFont(11);
}

QFont Font::search()
{
    return systemFont(14);
}

QFont Font::sectionTitle()
{
    return systemFont(12, QFont::DemiBold);
}

} // namespace driftbox::Theme
