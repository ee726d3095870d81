#include "ui/list/PageFooter.h"

#include "ui/controls/CountLabel.h"
#include "ui/controls/SymbolButton.h"

#include <QtWidgets/QBoxLayout>

namespace driftbox {

namespace {

constexpr int pageFooterBarHeight = 34;
constexpr int pageFooterSidePadding = 14;
constexpr int countSpacing = 12;

} // namespace

PageFooter::PageFooter(const QString& systemImage, const QString& label, const QString& help,
                       QWidget* parent)
    : QWidget(parent)
    , m_counts(new QHBoxLayout)
    , m_button(new SymbolButton(systemImage, help, this))
{
    setFixedHeight(pageFooterBarHeight);
    m_button->setLabel(label);
    m_counts->setSpacing(countSpacing);

    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(pageFooterSidePadding, 0, pageFooterSidePadding - SymbolButton::padding,
                            0);
    row->setSpacing(countSpacing);
    row->addLayout(m_counts);
    row->addStretch(1);
    row->addWidget(m_button);
}

CountLabel* PageFooter::addCount()
{
    auto* count = new CountLabel(this);
    m_counts->addWidget(count);
    m_button->raise(); // keeps it after the counts in the accessible tree
    return count;
}

} // namespace driftbox
