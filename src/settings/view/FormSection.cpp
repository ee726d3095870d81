#include "settings/view/FormSection.h"

#include "panel/view/CardShape.h"
#include "panel/view/Theme.h"
#include "settings/view/FormLabel.h"

#include <QtGui/QPainter>
#include <QtWidgets/QBoxLayout>

namespace driftbox {

namespace {

constexpr int rowHeight = 44;
constexpr int verticalPadding = 6;
constexpr int partSpacing = 10;
constexpr int titleSpacing = 8;
constexpr qreal cornerRadius = 10.0;

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
    column->setSpacing(titleSpacing);
    if (!title.isEmpty()) {
        auto* label = new FormLabel(title, Theme::systemFont(13, QFont::DemiBold),
                                    FormLabel::Tone::primary, this);
        label->setIndent(2);
        column->addWidget(label);
        m_card->raise(); // is read after its title
    }
    column->addWidget(m_card);
}

void FormSection::addRow(QWidget* row)
{
    row->setMinimumHeight(rowHeight);
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
    layout->setContentsMargins(sidePadding, verticalPadding, sidePadding, verticalPadding);
    layout->setSpacing(partSpacing);
    for (QWidget* part : parts)
        layout->addWidget(part, part == stretching ? 1 : 0);
    if (!stretching)
        layout->addStretch();
    addRow(row);
    return row;
}

void FormSection::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF card = QRectF(m_card->geometry()).adjusted(0.5, 0.5, -0.5, -0.5);
    painter.setPen(QPen(Theme::withOpacity(Theme::divider(), 0.6), 1.0));
    painter.setBrush(palette().color(QPalette::AlternateBase));
    painter.drawPath(continuousRoundedRect(card, cornerRadius));
    painter.setRenderHint(QPainter::Antialiasing, false);
    for (int index = 1; index < m_rows->count(); ++index) {
        const int y = m_card->y() + m_rows->itemAt(index)->geometry().top();
        painter.fillRect(QRect(m_card->x() + sidePadding, y, m_card->width() - 2 * sidePadding, 1),
                         Theme::withOpacity(Theme::divider(), 0.7));
    }
}

} // namespace driftbox
