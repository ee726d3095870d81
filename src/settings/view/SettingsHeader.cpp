#include "settings/view/SettingsHeader.h"

#include "settings/view/FormLabel.h"
#include "settings/view/SidebarIconTile.h"
#include "ui/theme/Theme.h"

#include <QtGui/QPainter>
#include <QtWidgets/QBoxLayout>

namespace driftbox {

namespace {

constexpr int tileSide = 58;
constexpr IconTileStyle tileStyle{
    .cornerRadius = 14.0, .symbolSize = 26, .weight = Symbols::Weight::semibold};
constexpr int headerPadding = 24;
constexpr int headerVerticalPadding = 18;
constexpr int headerSpacing = 16;
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
    lines->setContentsMargins(headerPadding + tileSide + headerSpacing, headerVerticalPadding,
                              headerPadding, headerVerticalPadding);
    lines->setSpacing(linesSpacing);
    lines->addStretch();
    lines->addWidget(m_title);
    lines->addWidget(m_subtitle);
    lines->addStretch();
    setMinimumHeight(tileSide + 2 * headerVerticalPadding);
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
    const QRectF tile(headerPadding, (height() - tileSide) / 2.0, tileSide, tileSide);
    paintIconTile(painter, tile, m_section, tileStyle);
}

} // namespace driftbox
