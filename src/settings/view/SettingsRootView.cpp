#include "settings/view/SettingsRootView.h"

#include "settings/view/AboutSettingsView.h"
#include "settings/view/ClipboardSettingsView.h"
#include "settings/view/GeneralSettingsView.h"
#include "settings/view/NotesSettingsView.h"
#include "settings/view/SettingsHeader.h"
#include "settings/view/SettingsSidebar.h"
#include "ui/controls/Divider.h"
#include "ui/controls/SymbolButton.h"

#include <QtGui/QShortcut>
#include <QtWidgets/QBoxLayout>
#include <QtWidgets/QStackedLayout>

using namespace Qt::StringLiterals;

namespace driftbox {

namespace {

constexpr int windowButtonMargin = 12;
constexpr int windowButtonSpacing = 4;

} // namespace

SettingsRootView::SettingsRootView(const SettingsServices& services, const TextExchange& exchange,
                                   QWidget* parent)
    : QWidget(parent)
    , m_services(services)
    , m_sidebar(new SettingsSidebar(m_navigation, exchange, this))
    , m_detail(new QWidget(this))
    , m_header(new SettingsHeader(m_detail))
    , m_pageArea(new QWidget(m_detail))
    , m_pages(new QStackedLayout(m_pageArea))
    , m_windowButtons(new QWidget(this))
{
    buildLayout();
    auto* minimize = new SymbolButton(u"minus"_s, u"Minimize"_s, m_windowButtons);
    auto* close = new SymbolButton(u"xmark"_s, u"Close"_s, m_windowButtons);
    auto* buttons = new QHBoxLayout(m_windowButtons);
    buttons->setContentsMargins({});
    buttons->setSpacing(windowButtonSpacing);
    buttons->addWidget(minimize);
    buttons->addWidget(close);
    connect(minimize, &QAbstractButton::clicked, this, &SettingsRootView::minimizeRequested);
    connect(close, &QAbstractButton::clicked, this, &SettingsRootView::closeRequested);

    const auto* closeShortcut = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_W), this);
    connect(closeShortcut, &QShortcut::activated, this, &SettingsRootView::closeRequested);
    const auto* findShortcut = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_F), this);
    connect(findShortcut, &QShortcut::activated, m_sidebar, &SettingsSidebar::focusSearch);

    connect(&m_navigation, &SettingsNavigation::selectionChanged, this,
            &SettingsRootView::showSelection);
    showSelection();
}

void SettingsRootView::buildLayout()
{
    auto* detail = new QVBoxLayout(m_detail);
    detail->setContentsMargins({});
    detail->setSpacing(0);
    detail->addWidget(m_header);
    detail->addWidget(new Divider(Qt::Horizontal, m_detail));
    detail->addWidget(m_pageArea, 1);

    auto* columns = new QHBoxLayout(this);
    columns->setContentsMargins({});
    columns->setSpacing(0);
    columns->addWidget(m_sidebar);
    columns->addWidget(new Divider(Qt::Vertical, this));
    columns->addWidget(m_detail, 1);
    QSizePolicy policy = m_detail->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    m_detail->setSizePolicy(policy);
}

void SettingsRootView::focusSidebar()
{
    m_sidebar->focusList();
}

int SettingsRootView::sidebarWidth() const
{
    return m_sidebar->width();
}

bool SettingsRootView::isTitleArea(const QPoint& position) const
{
    return rect().contains(position) && position.y() < m_header->height();
}

void SettingsRootView::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    const QSize size = m_windowButtons->sizeHint();
    m_windowButtons->setGeometry(
        QRect(QPoint(width() - windowButtonMargin - size.width(), windowButtonMargin), size));
    m_windowButtons->raise();
}

void SettingsRootView::showSelection()
{
    const auto selection = m_navigation.selection();
    m_detail->setVisible(selection.has_value());
    if (!selection)
        return;
    m_header->setSection(*selection);
    m_pages->setCurrentWidget(page(*selection));
}

QWidget* SettingsRootView::page(SettingsSection section)
{
    QWidget*& view = m_pageBySection[section];
    if (!view) {
        view = makePage(section);
        m_pages->addWidget(view);
    }
    return view;
}

QWidget* SettingsRootView::makePage(SettingsSection section)
{
    switch (section) {
    case SettingsSection::general:
        return new GeneralSettingsView(m_services, m_pageArea);
    case SettingsSection::clipboard:
        return new ClipboardSettingsView(m_services, m_pageArea);
    case SettingsSection::notes:
        return new NotesSettingsView(m_services, m_pageArea);
    case SettingsSection::about:
        return new AboutSettingsView(m_services, m_pageArea);
    }
    Q_UNREACHABLE();
}

} // namespace driftbox
