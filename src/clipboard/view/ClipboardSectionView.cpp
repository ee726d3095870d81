#include "clipboard/view/ClipboardSectionView.h"

#include "clipboard/ClipboardViewModel.h"
#include "clipboard/view/ClipboardFooter.h"
#include "ui/controls/SearchBar.h"
#include "ui/list/RowListView.h"

#include <functional>

#include <QtGui/QWindow>
#include <QtWidgets/QBoxLayout>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace driftbox {

namespace {

constexpr auto busyFrame = 40ms;
constexpr int busyStep = 16; // degrees a frame

} // namespace

ClipboardSectionView::ClipboardSectionView(ClipboardViewModel& viewModel, const Clock& clock,
                                           const TextExchange& exchange,
                                           ClipboardRowActions::MakeNote onMakeNote,
                                           QWidget* parent)
    : QWidget(parent)
    , m_viewModel(viewModel)
    , m_rows(viewModel, clock)
    , m_actions(viewModel, std::move(onMakeNote))
    , m_rowView(m_rows, m_actions)
    , m_page({.listName = u"Clipboard"_s,
              .searchPlaceholder = u"Search clipboard"_s,
              .exchange = exchange,
              .rows = m_rows,
              .delegate = m_rowView},
             this)
    , m_keyboard(viewModel, m_rows, m_page.selection(), m_actions)
{
    setFocusProxy(&m_page);
    m_page.setFooter(new ClipboardFooter(viewModel, &m_page));
    m_page.setKeyPressHandler(std::bind_front(&ClipboardKeyboard::handle, &m_keyboard));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(&m_page);
    connectParts();
    handleQueryChanged();
    updateBusyIndicator();
}

void ClipboardSectionView::connectParts()
{
    connect(&m_page, &ListPage::queryEdited, &m_viewModel, &ClipboardViewModel::setQuery);
    connect(&m_viewModel, &ClipboardViewModel::queryChanged, this,
            &ClipboardSectionView::handleQueryChanged);
    connect(&m_viewModel, &ClipboardViewModel::ocrProcessingIdChanged, this,
            &ClipboardSectionView::updateBusyIndicator);

    m_busyTimer.setInterval(busyFrame);
    int angle = 0;
    connect(&m_busyTimer, &QTimer::timeout, this, [this, angle]() mutable {
        angle = (angle + busyStep) % 360;
        m_rowView.setBusyAngle(angle);
        m_page.list().updateRow(m_rows.rowOf(m_viewModel.ocrProcessingId().value()));
    });
}

void ClipboardSectionView::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    if (event->spontaneous())
        return; // the window comes back from where the desktop had put it
    followScreen();
    updateBusyIndicator();
}

void ClipboardSectionView::hideEvent(QHideEvent* event)
{
    QWidget::hideEvent(event);
    m_busyTimer.stop();
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

void ClipboardSectionView::handleQueryChanged()
{
    m_page.searchBar().setQuery(m_viewModel.query());
    if (m_viewModel.query().isEmpty())
        m_page.setEmptyState(u"tray"_s, u"Nothing copied yet"_s,
                             u"Copy anything — it shows up here."_s);
    else
        m_page.setEmptyState(u"magnifyingglass"_s, u"No matches"_s);
}

void ClipboardSectionView::updateBusyIndicator()
{
    if (m_viewModel.ocrProcessingId() && isVisible())
        m_busyTimer.start();
    else
        m_busyTimer.stop();
}

} // namespace driftbox
