#include "settings/view/StatusLine.h"

#include "settings/view/FormLabel.h"
#include "settings/view/SystemColors.h"
#include "ui/theme/Symbols.h"
#include "ui/theme/Theme.h"

#include <QtGui/QPainter>
#include <QtWidgets/QBoxLayout>

using namespace Qt::StringLiterals;

namespace driftbox {

namespace {

constexpr int statusLineSymbolSize = 15;
constexpr int statusLineSymbolSpacing = 9;

} // namespace

StatusLine::StatusLine(QWidget* parent)
    : QWidget(parent)
    , m_text(new FormLabel({}, Theme::systemFont(13), FormLabel::Tone::primary, this))
{
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(Symbols::extent(statusLineSymbolSize) + statusLineSymbolSpacing, 0, 0,
                            0);
    row->addWidget(m_text);
}

void StatusLine::setStatus(Status status, const QString& text)
{
    m_status = status;
    m_text->setText(text);
    update();
}

void StatusLine::paintEvent(QPaintEvent*)
{
    const bool isGood = m_status == Status::good;
    QPainter painter(this);
    Symbols::paint(painter, QRect(0, 0, Symbols::extent(statusLineSymbolSize), height()),
                   isGood ? u"checkmark.seal.fill"_s : u"exclamationmark.triangle.fill"_s,
                   {.size = statusLineSymbolSize,
                    .color = systemColor(isGood ? SystemColor::green : SystemColor::orange)});
}

} // namespace driftbox
