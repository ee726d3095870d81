#include "settings/view/SettingsSidebar.h"

#include "settings/SettingsNavigation.h"
#include "settings/view/SidebarIconTile.h"
#include "settings/view/SidebarSearchField.h"
#include "ui/theme/CardShape.h"
#include "ui/theme/Theme.h"

#include <algorithm>

#include <QtCore/QScopedValueRollback>
#include <QtGui/QGuiApplication>
#include <QtGui/QPainter>
#include <QtGui/QPalette>
#include <QtWidgets/QBoxLayout>
#include <QtWidgets/QListView>
#include <QtWidgets/QStyledItemDelegate>

using namespace Qt::StringLiterals;

namespace driftbox {

namespace {

constexpr int sidebarWidth = 208;
constexpr int sidebarPadding = 12;
constexpr int sidebarTopPadding = 16;
constexpr int sidebarSpacing = 10;
constexpr int sidebarRowHeight = 36;
constexpr int rowSpacing = 2;
constexpr int rowPadding = 8;
constexpr int sidebarTitleSpacing = 8;
constexpr qreal sidebarCornerRadius = 7.0;

/// Paints a page's tile and title.
class RowPainter final : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                                 const QModelIndex&) const override
    {
        return {0,
                std::max(sidebarRowHeight, option.fontMetrics.height() + rowPadding) + rowSpacing};
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override
    {
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        const QRect row = option.rect.adjusted(0, 0, 0, -rowSpacing);
        const bool isSelected = option.state & QStyle::State_Selected;
        const bool isFocused = option.state & QStyle::State_HasFocus;
        if (isSelected)
            painter->fillPath(continuousRoundedRect(row, sidebarCornerRadius), fill(isFocused));
        else if (option.state & QStyle::State_MouseOver)
            painter->fillPath(continuousRoundedRect(row, sidebarCornerRadius), Theme::hoverFill());

        const QRectF tile(row.left() + rowPadding,
                          row.center().y() + 0.5 - sidebarIconTileSide / 2.0, sidebarIconTileSide,
                          sidebarIconTileSide);
        paintSidebarIconTile(
            *painter, tile,
            index.data(SettingsSectionsModel::sectionRole).value<SettingsSection>());
        if (isSelected && isFocused) // the fill may have the tile's color
            outlineTile(*painter, tile);
        painter->setFont(option.font);
        painter->setPen(isSelected && isFocused ? option.palette.color(QPalette::HighlightedText)
                                                : Theme::primary());
        painter->drawText(
            QRectF(row).adjusted(tile.right() - row.left() + sidebarTitleSpacing, 0, 0, 0),
            Qt::AlignVCenter, index.data().toString());
        painter->restore();
    }

private:
    static void outlineTile(QPainter& painter, const QRectF& tile)
    {
        painter.setPen(QPen(Theme::withOpacity(Qt::white, 0.45), 1.0));
        painter.setBrush(Qt::NoBrush);
        painter.drawPath(continuousRoundedRect(tile.adjusted(-0.5, -0.5, 0.5, 0.5), 6.5));
    }

    [[nodiscard]] static QColor fill(bool focused)
    {
        return focused ? QGuiApplication::palette().color(QPalette::Active, QPalette::Highlight)
                       : Theme::withOpacity(Theme::primary(), 0.12);
    }
};

} // namespace

SettingsSidebar::SettingsSidebar(SettingsNavigation& navigation, const TextExchange& exchange,
                                 QWidget* parent)
    : QWidget(parent)
    , m_navigation(navigation)
    , m_model(navigation)
    , m_list(new QListView(this))
{
    auto* search = new SidebarSearchField(u"Search"_s, exchange, this);
    search->field().setText(navigation.sidebarQuery());
    m_search = search;
    connect(&search->field(), &QLineEdit::textChanged, &navigation,
            &SettingsNavigation::setSidebarQuery);

    m_list->setModel(&m_model);
    m_list->setItemDelegate(new RowPainter(m_list));
    m_list->setAccessibleName(u"Settings pages"_s);
    m_list->setFont(Theme::systemFont(13));
    m_list->setFrameShape(QFrame::NoFrame);
    m_list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_list->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    m_list->setMouseTracking(true);
    m_list->viewport()->setAutoFillBackground(false);
    connect(&m_model, &QAbstractItemModel::modelReset, this, &SettingsSidebar::showSelection);
    connect(&navigation, &SettingsNavigation::selectionChanged, this,
            &SettingsSidebar::showSelection);
    connect(m_list->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &SettingsSidebar::applySelection);
    showSelection();

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(sidebarPadding, sidebarTopPadding, sidebarPadding, sidebarPadding);
    column->setSpacing(sidebarSpacing);
    column->addWidget(search);
    column->addWidget(m_list, 1);
    m_list->raise(); // so that screen readers read it after the search field
    setFixedWidth(sidebarWidth);
}

void SettingsSidebar::focusList()
{
    m_list->setFocus(Qt::ActiveWindowFocusReason);
}

void SettingsSidebar::focusSearch()
{
    m_search->setFocus(Qt::ShortcutFocusReason);
}

void SettingsSidebar::showSelection()
{
    const QScopedValueRollback showing(m_isShowingSelection, true);
    const auto selection = m_navigation.selection();
    const QModelIndex index = selection ? m_model.indexOf(*selection) : QModelIndex();
    if (index.isValid())
        m_list->setCurrentIndex(index);
    else
        m_list->clearSelection();
}

void SettingsSidebar::applySelection()
{
    if (m_isShowingSelection)
        return;
    const QModelIndexList selected = m_list->selectionModel()->selectedIndexes();
    if (selected.isEmpty())
        m_navigation.setSelection(std::nullopt);
    else
        m_navigation.setSelection(
            selected.front().data(SettingsSectionsModel::sectionRole).value<SettingsSection>());
}

} // namespace driftbox
