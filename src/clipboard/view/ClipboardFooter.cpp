#include "clipboard/view/ClipboardFooter.h"

#include "clipboard/ClipboardViewModel.h"
#include "ui/controls/CountLabel.h"
#include "ui/controls/SymbolButton.h"
#include "ui/theme/Symbols.h"
#include "ui/theme/Theme.h"

#include <QtGui/QPainter>

using namespace Qt::StringLiterals;

namespace driftbox {

namespace {

constexpr int symbolSize = 10;
constexpr int symbolSpacing = 4;

} // namespace

ClipboardFooter::ClipboardFooter(ClipboardViewModel& viewModel, QWidget* parent)
    : PageFooter(u"trash"_s, u"Clear unpinned"_s, u"Clear all unpinned items"_s, parent)
    , m_viewModel(viewModel)
    , m_total(addCount())
    , m_pinned(addCount())
{
    m_pinned->setContentsMargins(Symbols::extent(symbolSize) + symbolSpacing, 0, 0, 0);
    QSizePolicy policy = m_pinned->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    m_pinned->setSizePolicy(policy);

    connect(&button(), &QAbstractButton::clicked, &viewModel, &ClipboardViewModel::clearUnpinned);
    connect(&viewModel, &ClipboardViewModel::itemsChanged, this, &ClipboardFooter::showCounts);
    showCounts();
}

void ClipboardFooter::showCounts()
{
    m_total->setText(u"%1 total"_s.arg(m_viewModel.items().size()));
    m_pinned->setText(u"%1 pinned"_s.arg(m_viewModel.pinnedCount()));
    m_pinned->setVisible(m_viewModel.pinnedCount() > 0);
    button().setEnabled(m_viewModel.unpinnedCount() > 0);
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
