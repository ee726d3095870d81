#include "settings/view/FormSection.h"

#include "settings/view/FormLabel.h"
#include "settings/view/WrappingLayout.h"
#include "ui/theme/CardShape.h"
#include "ui/theme/Theme.h"

#include <QtGui/QPainter>
#include <QtWidgets/QBoxLayout>

namespace driftbox {

namespace {

constexpr int formSectionRowHeight = 44;
constexpr int formSectionVerticalPadding = 6;
constexpr int partSpacing = 10;
constexpr int formSectionTitleSpacing = 8;
constexpr qreal formSectionCornerRadius = 10.0;

void padRow(QLayout& layout)
{
    layout.setContentsMargins(FormSection::sidePadding, formSectionVerticalPadding,
                              FormSection::sidePadding, formSectionVerticalPadding);
    layout.setSpacing(partSpacing);
}

} // namespace

FormSection::FormSection(const QString& title, QWidget* parent)
    : QWidget(parent)
    , m_card(new QWidget(this))
    , m_rows(new QVBoxLayout(m_card))
{
    m_rows->setContentsMargins({});
    m_rows->setSpacing(0);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins({});
    column->setSpacing(formSectionTitleSpacing);
    if (!title.isEmpty()) {
        auto* label = new FormLabel(title, Theme::systemFont(13, QFont::DemiBold),
                                    FormLabel::Tone::primary, this);
        label->setIndent(2);
        column->addWidget(label);
        m_card->raise(); // so that screen readers read it after its title
    }
    column->addWidget(m_card);
}

void FormSection::addRow(QWidget* row)
{
    row->setMinimumHeight(formSectionRowHeight);
    m_rows->addWidget(row);
}

void FormSection::addRow(QWidget* part, Qt::Alignment alignment)
{
    addRow({part}, part)->layout()->setAlignment(part, alignment);
}

QWidget* FormSection::addRow(std::initializer_list<QWidget*> parts, const QWidget* stretching)
{
    auto* row = new QWidget(m_card);
    auto* layout = new QHBoxLayout(row);
    padRow(*layout);
    for (QWidget* part : parts)
        layout->addWidget(part, part == stretching ? 1 : 0);
    addRow(row);
    return row;
}

void FormSection::addWrappingRow(std::initializer_list<QWidget*> parts)
{
    auto* row = new QWidget(m_card);
    auto* layout = new WrappingLayout(row);
    padRow(*layout);
    for (QWidget* part : parts)
        layout->addWidget(part);
    addRow(row);
}

void FormSection::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF card = QRectF(m_card->geometry()).adjusted(0.5, 0.5, -0.5, -0.5);
    painter.setPen(QPen(Theme::withOpacity(Theme::divider(), 0.6), 1.0));
    painter.setBrush(palette().color(QPalette::AlternateBase));
    painter.drawPath(continuousRoundedRect(card, formSectionCornerRadius));
    painter.setRenderHint(QPainter::Antialiasing, false);
    for (int index = 1; index < m_rows->count(); ++index) {
        const int y = m_card->y() + m_rows->itemAt(index)->geometry().top();
        painter.fillRect(QRect(m_card->x() + sidePadding, y, m_card->width() - 2 * sidePadding, 1),
                         Theme::withOpacity(Theme::divider(), 0.7));
    }
}

} // namespace driftbox
