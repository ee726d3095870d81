#include "settings/view/SettingsHeader.h"

#include "panel/view/Theme.h"
#include "settings/view/FormLabel.h"
#include "settings/view/SidebarIconTile.h"

#include <QtGui/QPainter>
#include <QtWidgets/QBoxLayout>

namespace driftbox {

namespace {

constexpr int tileSide = 58;
constexpr IconTileStyle tileStyle{
    .cornerRadius = 14.0, .symbolSize = 26, .weight = Symbols::Weight::semibold};
constexpr int padding = 24;
constexpr int verticalPadding = 18;
constexpr int spacing = 16;
constexpr int titleSize = 25;
constexpr int subtitleSize = 13;
constexpr int linesSpacing = 3;

} // namespace

SettingsHeader::SettingsHeader(QWidget* parent)
    : QWidget(parent)
    , m_title(new FormLabel({}, Theme::systemFont(titleSize, QFont::Bold), FormLabel::Tone::primary,
                            this))
    , m_subtitle(
          new FormLabel({}, Theme::systemFont(subtitleSize), FormLabel::Tone::secondary, this))
{
    auto* lines = new QVBoxLayout(this);
    lines->setContentsMargins(padding + tileSide + spacing, verticalPadding, padding,
                              verticalPadding);
    lines->setSpacing(linesSpacing);
    lines->addStretch();
    lines->addWidget(m_title);
    lines->addWidget(m_subtitle);
    lines->addStretch();
    setMinimumHeight(tileSide + 2 * verticalPadding);
}

void SettingsHeader::setSection(SettingsSection section)
{
    m_section = section;
    const SettingsSectionLook look = lookOf(section);
    m_title->setText(look.title);
    m_subtitle->setText(look.subtitle);
    update();
}

void SettingsHeader::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const QRectF tile(padding, (height() - tileSide) / 2.0, tileSide, tileSide);
    paintIconTile(painter, tile, m_section, tileStyle);
}

} // namespace driftbox
