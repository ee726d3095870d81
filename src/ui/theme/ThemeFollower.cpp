#include "ui/theme/ThemeFollower.h"

#include "ui/theme/Contrast.h"
#include "ui/theme/QuietStyle.h"

#include <QtGui/QFontDatabase>
#include <QtGui/QPalette>
#include <QtWidgets/QApplication>
#include <QtWidgets/QStyle>

using namespace Qt::StringLiterals;

namespace driftbox {

namespace {

constexpr int textSize = 13;
constexpr double minContrast = 3.0; // of large text and symbols

struct Colors
{
    QColor window;
    QColor base;
    QColor alternateBase;
    QColor button;
    QColor text;
    QColor placeholder;
    QColor disabledText;
    QColor accent;    ///< of symbols
    QColor highlight; ///< the background of selected text
};

const Colors lightColors{
    .window = QColor(0xf7, 0xf7, 0xf8),
    .base = QColor(0xff, 0xff, 0xff),
    .alternateBase = QColor(0xf2, 0xf2, 0xf4),
    .button = QColor(0xfd, 0xfd, 0xfe),
    .text = QColor(0x1b, 0x1b, 0x1f),
    .placeholder = QColor(0x82, 0x82, 0x8b),
    .disabledText = QColor(0xa8, 0xa8, 0xb0),
    .accent = QColor(0x1f, 0x6f, 0xeb),
    .highlight = QColor(0x1f, 0x6f, 0xeb),
};

const Colors darkColors{
    .window = QColor(0x25, 0x25, 0x28),
    .base = QColor(0x1c, 0x1c, 0x1f),
    .alternateBase = QColor(0x2b, 0x2b, 0x2f),
    .button = QColor(0x3a, 0x3a, 0x3f),
    .text = QColor(0xf2, 0xf2, 0xf5),
    .placeholder = QColor(0x80, 0x80, 0x89),
    .disabledText = QColor(0x66, 0x66, 0x6e),
    .accent = QColor(0x5b, 0x9c, 0xff),
    .highlight = QColor(0x2b, 0x6f, 0xe3),
};

QPalette paletteOf(const Colors& colors)
{
    QPalette palette(colors.text, colors.button, colors.button.lighter(120),
                     colors.button.darker(140), colors.button.darker(115), colors.text, colors.text,
                     colors.base, colors.window);
    const bool isWhiteLegible = contrast(Qt::white, colors.highlight) >= minContrast;
    palette.setColor(QPalette::AlternateBase, colors.alternateBase);
    palette.setColor(QPalette::Highlight, colors.highlight);
    palette.setColor(QPalette::HighlightedText, isWhiteLegible ? Qt::white : Qt::black);
    palette.setColor(QPalette::Link, colors.accent);
    palette.setColor(QPalette::LinkVisited, colors.accent);
    palette.setColor(QPalette::PlaceholderText, colors.placeholder);
    palette.setColor(QPalette::ToolTipBase, colors.base);
    palette.setColor(QPalette::ToolTipText, colors.text);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, colors.disabledText);
    return palette;
}

// A platform theme replaces the default palette's highlight color by the desktop's accent color.
std::optional<QColor> platformThemeAccent()
{
    const QColor highlight = QApplication::palette().color(QPalette::Highlight);
    const QColor standard = QApplication::style()->standardPalette().color(QPalette::Highlight);
    return highlight == standard ? std::nullopt : std::optional(highlight);
}

// The desktop's font, or a better one if that is only the generic sans-serif.
QFont applicationFont()
{
    QFont font = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
    const QString inter = u"Inter"_s;
    const bool isGeneric = font.family().startsWith(u"Sans"_s, Qt::CaseInsensitive);
    if (isGeneric && QFontDatabase::hasFamily(inter))
        font.setFamily(inter);
    // Some text fonts have monochrome emoji without combined sequences.
    const QString emoji = u"Noto Color Emoji"_s;
    if (QFontDatabase::hasFamily(emoji))
        font.setFamilies({font.family(), emoji});
    font.setPixelSize(textSize);
    return font;
}

} // namespace

ThemeFollower::ThemeFollower(const Appearance& appearance, QObject* parent)
    : QObject(parent)
    , m_appearance(appearance)
{
    QApplication::setStyle(new QuietStyle);
    QApplication::setPalette(QPalette()); // resets it to the platform theme's
    m_themeAccent = platformThemeAccent();
    QApplication::setFont(applicationFont());
    apply();
    connect(&m_appearance, &Appearance::colorSchemeChanged, this, &ThemeFollower::apply);
    connect(&m_appearance, &Appearance::accentColorChanged, this, &ThemeFollower::apply);
}

void ThemeFollower::apply() const
{
    Colors colors = m_appearance.colorScheme() == ColorScheme::dark ? darkColors : lightColors;
    const auto desktopAccent = m_appearance.accentColor();
    if (const auto accent = desktopAccent ? desktopAccent : m_themeAccent) {
        colors.highlight = *accent;
        colors.accent = withContrast(*accent, colors.window, minContrast);
    }
    QApplication::setPalette(paletteOf(colors));
}

} // namespace driftbox
