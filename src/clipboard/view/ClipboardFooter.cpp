#include "clipboard/view/ClipboardFooter.h"

#include "clipboard/ClipboardViewModel.h"
#include "panel/view/SymbolButton.h"
#include "panel/view/Symbols.h"
#include "panel/view/Theme.h"

#include <QtGui/QPainter>
#include <QtWidgets/QBoxLayout>
#include <QtWidgets/QLabel>

using namespace Qt::StringLiterals;

namespace driftbox {

namespace {

constexpr int barHeight = 34;
constexpr int sidePadding = 14;
constexpr int countSpacing = 12;
constexpr int symbolSize = 10;
constexpr int symbolSpacing = 4;

/// Text in the colour that the theme has at the moment.
class CountLabel final : public QLabel
{
public:
    explicit CountLabel(QWidget* parent)
        : QLabel(parent)
    {
        setFont(Theme::Font::rowMeta());
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.setPen(Theme::secondary());
        painter.drawText(contentsRect(), Qt::AlignLeft | Qt::AlignVCenter, text());
    }
};

} // namespace

ClipboardFooter::ClipboardFooter(ClipboardViewModel& viewModel, QWidget* parent)
    : QWidget(parent)
    , m_viewModel(viewModel)
    , m_total(new CountLabel(this))
    , m_pinned(new CountLabel(this))
    , m_clearButton(new SymbolButton(u"trash"_s, u"Clear all unpinned items"_s, this))
{
    setFixedHeight(barHeight);
    m_clearButton->setLabel(u"Clear unpinned"_s);
    m_pinned->setContentsMargins(Symbols::extent(symbolSize) + symbolSpacing, 0, 0, 0);
    QSizePolicy keepsItsPlace = m_pinned->sizePolicy();
    keepsItsPlace.setRetainSizeWhenHidden(true);
    m_pinned->setSizePolicy(keepsItsPlace);

    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(sidePadding, 0, sidePadding - SymbolButton::padding, 0);
    row->setSpacing(countSpacing);
    row->addWidget(m_total);
    row->addWidget(m_pinned);
    row->addStretch(1);
    row->addWidget(m_clearButton);

    connect(m_clearButton, &QAbstractButton::clicked, &viewModel,
            &ClipboardViewModel::clearUnpinned);
    connect(&viewModel, &ClipboardViewModel::itemsChanged, this, &ClipboardFooter::showCounts);
    showCounts();
}

void ClipboardFooter::showCounts()
{
    m_total->setText(u"%1 total"_s.arg(m_viewModel.items().size()));
    m_pinned->setText(u"%1 pinned"_s.arg(m_viewModel.pinnedCount()));
    m_pinned->setVisible(m_viewModel.pinnedCount() > 0);
    m_clearButton->setEnabled(m_viewModel.unpinnedCount() > 0);
    update();
}

void ClipboardFooter::paintEvent(QPaintEvent*)
{
    if (m_pinned->isHidden())
        return;
    QPainter painter(this);
    const QRect label = m_pinned->geometry();
    const QRect symbol(label.left(), label.top(), Symbols::extent(symbolSize), label.height());
    Symbols::paint(painter, symbol, u"pin.fill"_s,
                   {.size = symbolSize, .color = Theme::secondary()});
}

} // namespace driftbox
