#include "clipboard/view/ClipboardSectionView.h"

#include "clipboard/ClipboardViewModel.h"
#include "clipboard/view/ClipboardFooter.h"
#include "panel/view/Divider.h"
#include "panel/view/EmptyStateView.h"
#include "panel/view/RowListView.h"
#include "panel/view/SearchBar.h"

#include <QtGui/QAccessible>
#include <QtGui/QKeyEvent>
#include <QtGui/QWindow>
#include <QtWidgets/QBoxLayout>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace driftbox {

namespace {

constexpr auto busyFrame = 40ms;
constexpr int busyStep = 16; // degrees a frame

TextExchange exchangeWith(ClipboardViewModel& viewModel)
{
    return {.pasteboardText = [&viewModel] { return viewModel.pasteboardText(); },
            .copyText = [&viewModel](const QString& text) { viewModel.copyText(text); }};
}

} // namespace

ClipboardSectionView::ClipboardSectionView(ClipboardViewModel& viewModel, const Clock& clock,
                                           ClipboardRowActions::MakeNote onMakeNote,
                                           QWidget* parent)
    : QWidget(parent)
    , m_viewModel(viewModel)
    , m_rows(viewModel, clock)
    , m_actions(viewModel, std::move(onMakeNote))
    , m_rowView(m_rows, m_actions)
    , m_searchBar(new SearchBar(u"Search clipboard"_s, exchangeWith(viewModel), this))
    , m_list(new RowListView(m_rows, m_rowView, this))
    , m_emptyState(new EmptyStateView(this))
    , m_selection(m_rows)
    , m_keyboard(viewModel, m_rows, m_selection, m_actions)
{
    m_list->setAccessibleName(u"Clipboard"_s);
    setFocusProxy(m_searchBar);
    m_searchBar->field().installEventFilter(this);
    buildLayout();
    connectParts();
    m_searchBar->setQuery(viewModel.query());
    m_list->setSelectedRow(m_selection.row());
    updateEmptyState();
    updateBusyIndicator();
}

ClipboardSectionView::~ClipboardSectionView()
{
    delete m_list; // before the rows that it shows
}

void ClipboardSectionView::buildLayout()
{
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins({});
    column->setSpacing(0);
    column->addWidget(m_searchBar);
    column->addWidget(new Divider(Qt::Horizontal, this));
    column->addWidget(m_list, 1);
    column->addWidget(m_emptyState, 1);
    column->addWidget(new Divider(Qt::Horizontal, this));
    column->addWidget(new ClipboardFooter(m_viewModel, this));
}

void ClipboardSectionView::connectParts()
{
    connect(m_searchBar, &SearchBar::queryEdited, this, &ClipboardSectionView::handleQueryEdited);
    connect(&m_viewModel, &ClipboardViewModel::queryChanged, this, [this] {
        m_searchBar->setQuery(m_viewModel.query());
        updateEmptyState();
    });
    connect(&m_viewModel, &ClipboardViewModel::itemsChanged, this,
            &ClipboardSectionView::updateEmptyState);
    connect(&m_viewModel, &ClipboardViewModel::ocrProcessingIdChanged, this,
            &ClipboardSectionView::updateBusyIndicator);
    connect(&m_selection, &ClipboardSelection::changed, this, [this] {
        m_list->setSelectedRow(m_selection.row());
        m_selectionHasChanged = true;
    });

    m_busyTimer.setInterval(busyFrame);
    int angle = 0;
    connect(&m_busyTimer, &QTimer::timeout, this, [this, angle]() mutable {
        angle = (angle + busyStep) % 360;
        m_rowView.setBusyAngle(angle);
        m_list->updateRow(m_rows.rowOf(m_viewModel.ocrProcessingId().value()));
    });
}

void ClipboardSectionView::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    if (event->spontaneous())
        return; // the window comes back from where the desktop had put it
    startOver();
    followScreen();
    updateBusyIndicator();
    setFocus(Qt::ActiveWindowFocusReason);
}

void ClipboardSectionView::hideEvent(QHideEvent* event)
{
    QWidget::hideEvent(event);
    m_busyTimer.stop();
}

void ClipboardSectionView::startOver()
{
    m_viewModel.setQuery({});
    m_selection.selectFirst();
    m_list->scrollToTop();
    m_rowIsAnnounced = false;
}

// Pictures are made for the pixels of the screen that shows them.
void ClipboardSectionView::followScreen()
{
    m_viewModel.setImagePixelRatio(devicePixelRatioF());
    if (const QWindow* window = this->window()->windowHandle())
        connect(window, &QWindow::screenChanged, this, &ClipboardSectionView::handleScreenChanged,
                Qt::UniqueConnection);
}

void ClipboardSectionView::handleScreenChanged()
{
    m_viewModel.setImagePixelRatio(devicePixelRatioF());
    update();
}

void ClipboardSectionView::updateEmptyState()
{
    const bool isEmpty = m_rows.rowCount() == 0;
    if (m_viewModel.query().isEmpty())
        m_emptyState->setContent(u"tray"_s, u"Nothing copied yet"_s,
                                 u"Copy anything — it shows up here."_s);
    else
        m_emptyState->setContent(u"magnifyingglass"_s, u"No matches"_s);
    m_list->setHidden(isEmpty);
    m_emptyState->setVisible(isEmpty);
}

void ClipboardSectionView::updateBusyIndicator()
{
    if (m_viewModel.ocrProcessingId() && isVisible())
        m_busyTimer.start();
    else
        m_busyTimer.stop();
}

void ClipboardSectionView::handleQueryEdited(const QString& query)
{
    m_viewModel.setQuery(query);
    if (!std::exchange(m_rowIsAnnounced, false))
        return;
    QAccessibleEvent backAtTheField(&m_searchBar->field(), QAccessible::Focus);
    QAccessible::updateAccessibility(&backAtTheField);
}

bool ClipboardSectionView::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress && handleKeyPress(*static_cast<QKeyEvent*>(event)))
        return true;
    return QWidget::eventFilter(watched, event);
}

bool ClipboardSectionView::handleKeyPress(const QKeyEvent& event)
{
    m_selectionHasChanged = false;
    const bool isHandled = m_keyboard.handle(
        {static_cast<Qt::Key>(event.key()), event.modifiers(), event.isAutoRepeat()},
        m_list->rowsPerPage());
    if (m_selectionHasChanged) {
        m_list->announceSelectedRow();
        m_rowIsAnnounced = true;
    }
    return isHandled;
}

} // namespace driftbox
