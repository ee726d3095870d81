#include "settings/view/FormPage.h"

#include "ui/controls/OverlayScrollBar.h"

#include <QtCore/QEvent>
#include <QtWidgets/QBoxLayout>
#include <QtWidgets/QScrollBar>

namespace driftbox {

namespace {

constexpr int formPageSidePadding = 24;
constexpr int formPageTopPadding = 18;
constexpr int bottomPadding = 20;
constexpr int formPageSectionSpacing = 18;
constexpr int resizeEdgeWidth = 6; // the scroll bar leaves the window's edge free

} // namespace

FormPage::FormPage(QWidget* parent)
    : QScrollArea(parent)
    , m_scrollBar(new OverlayScrollBar(*verticalScrollBar(), this))
{
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setWidgetResizable(true);
    viewport()->setAutoFillBackground(false);

    auto* page = new QWidget;
    page->setAutoFillBackground(false);
    auto* whole = new QVBoxLayout(page);
    whole->setContentsMargins({});
    m_column = new QVBoxLayout;
    whole->addLayout(m_column);
    whole->addStretch(1); // aligned to the top, the column would get no room for lines that wrap
    m_column->setContentsMargins(formPageSidePadding, formPageTopPadding, formPageSidePadding,
                                 bottomPadding);
    m_column->setSpacing(formPageSectionSpacing);
    setWidget(page);
    page->setAutoFillBackground(false); // setWidget() has enabled it
}

void FormPage::resizeEvent(QResizeEvent* event)
{
    QScrollArea::resizeEvent(event);
    m_scrollBar->placeIn(rect().adjusted(0, 0, -resizeEdgeWidth, 0));
}

} // namespace driftbox
