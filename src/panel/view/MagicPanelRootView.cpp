#include "panel/view/MagicPanelRootView.h"

#include "panel/PanelAnimator.h"
#include "panel/SectionRegistry.h"
#include "panel/view/PanelTransition.h"
#include "panel/view/SectionRail.h"
#include "ui/controls/Divider.h"
#include "ui/controls/EmptyStateView.h"
#include "ui/controls/Tooltip.h"
#include "ui/theme/Theme.h"

#include <QtGui/QPaintEvent>
#include <QtGui/QPainter>
#include <QtGui/QShortcut>
#include <QtWidgets/QBoxLayout>

using namespace Qt::StringLiterals;

namespace driftbox {

namespace {

constexpr int padding = 28;
constexpr qreal panelCornerRadius = 14.0;
constexpr qreal outlineWidth = 1.0;
constexpr qreal outlineOpacity = 0.08;
constexpr qreal dividerOpacity = 0.6;
constexpr qreal shadowRadius = 14.0;
constexpr qreal shadowOpacity = 0.18;
constexpr qreal shadowOffset = 6.0;

QWidget* makeEmptyState(QWidget* parent)
{
    auto* view = new EmptyStateView(parent);
    view->setContent(u"rectangle.dashed"_s, u"No section"_s,
                     u"Register a MagicPanelSection to get started."_s);
    return view;
}

} // namespace

MagicPanelRootView::MagicPanelRootView(PanelAnimator& animator, SectionRegistry& registry,
                                       QWidget* parent)
    : QWidget(parent)
    , m_registry(registry)
    , m_transition(new PanelTransition(animator, *this))
    , m_contentArea(new QWidget(this))
    , m_shadow(panelCornerRadius, shadowRadius, Theme::withOpacity(Qt::black, shadowOpacity))
{
    auto* rail = new SectionRail(m_registry, this);
    connect(rail, &SectionRail::settingsRequested, this, &MagicPanelRootView::settingsRequested);
    buildLayout(*rail);
    addShortcut(Qt::CTRL | Qt::Key_Tab, 1);
    addShortcut(Qt::CTRL | Qt::SHIFT | Qt::Key_Tab, -1);

    m_page = makeEmptyState(m_contentArea);
    m_contentArea->layout()->addWidget(m_page);
    showActiveSection();
    connect(&m_registry, &SectionRegistry::activeIDChanged, this,
            &MagicPanelRootView::showActiveSection);
    connect(&animator, &PanelAnimator::visibleChanged, this,
            &MagicPanelRootView::handleVisibleChanged);
}

void MagicPanelRootView::buildLayout(QWidget& rail)
{
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(shadowMargins());
    row->setSpacing(0);
    row->addWidget(&rail);
    row->addWidget(new Divider(Qt::Vertical, this, dividerOpacity));
    row->addWidget(m_contentArea, 1);

    auto* content = new QVBoxLayout(m_contentArea);
    content->setContentsMargins({});
}

void MagicPanelRootView::addShortcut(const QKeySequence& keys, int steps)
{
    auto* shortcut = new QShortcut(keys, this);
    connect(shortcut, &QShortcut::activated, this,
            [this, steps] { m_registry.selectNeighbor(steps); });
}

void MagicPanelRootView::showActiveSection()
{
    MagicPanelSection* section = m_registry.activeSection();
    if (section == m_shownSection)
        return;
    m_shownSection = section;

    // The old page may still be handling the event that triggered this.
    m_page->hide();
    m_page->deleteLater();
    m_page = section->makeRootView(m_contentArea);
    m_contentArea->layout()->addWidget(m_page);
    m_page->show();
    focusPage();
}

void MagicPanelRootView::focusPage()
{
    if (m_page)
        m_page->setFocus(Qt::ActiveWindowFocusReason);
}

void MagicPanelRootView::handleVisibleChanged(bool visible)
{
    if (visible)
        focusPage();
    else
        Tooltip::dismiss(*window());
}

void MagicPanelRootView::setComposited(bool composited)
{
    m_isComposited = composited;
    m_transition->setAnimated(composited);
    update();
}

QMargins MagicPanelRootView::shadowMargins()
{
    return {padding, padding, padding, padding};
}

QRegion MagicPanelRootView::cardRegion() const
{
    const QRect card = rect().marginsRemoved(shadowMargins());
    return QRegion(continuousRoundedRect(card, panelCornerRadius).toFillPolygon().toPolygon());
}

void MagicPanelRootView::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    if (!m_isComposited)
        painter.fillRect(event->rect(), Theme::panelBackground());

    const QRect card = rect().marginsRemoved(shadowMargins());
    constexpr int edge = static_cast<int>(panelCornerRadius);
    if (card.adjusted(edge, edge, -edge, -edge).contains(event->rect())) {
        painter.fillRect(event->rect(), Theme::panelBackground());
        return;
    }
    if (m_isComposited)
        m_shadow.paint(painter, QRectF(card).translated(0, shadowOffset));
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(continuousRoundedRect(card, panelCornerRadius), Theme::panelBackground());
    constexpr qreal inset = outlineWidth / 2.0;
    painter.setPen(QPen(Theme::withOpacity(Theme::primary(), outlineOpacity), outlineWidth));
    painter.drawPath(continuousRoundedRect(QRectF(card).adjusted(inset, inset, -inset, -inset),
                                           panelCornerRadius - inset));
}

} // namespace driftbox
