#include "clipboard/view/ClipboardRowView.h"

#include "clipboard/ClipboardListModel.h"
#include "clipboard/ThumbnailCache.h"
#include "ui/list/RowLayout.h"
#include "ui/list/RowPainting.h"
#include "ui/theme/Theme.h"

#include <QtGui/QPainter>

using namespace Qt::StringLiterals;

namespace driftbox {

using Action = ClipboardRowAction;

namespace {

constexpr int maxCachedPreviews = 64;
constexpr qreal unpinnedOpacity = 0.55;
constexpr qreal outlineOpacity = 0.14;
constexpr QSize placeholderSize(107, 60);

std::vector<Action> buttonActions(const ClipboardItem& item)
{
    std::vector<Action> actions = ClipboardRowActions::hoverActions(item);
    actions.push_back(Action::togglePin);
    return actions;
}

std::vector<QRect> buttonRects(const RowLayout& layout, size_t count)
{
    std::vector<QRect> rects = layout.actions(count - 1);
    rects.push_back(layout.mark());
    return rects;
}

QColor buttonColor(Action action, const ClipboardItem& item, bool hasPointer)
{
    if (action == Action::togglePin && item.isPinned())
        return Theme::pinOn();
    if (action == Action::togglePin && !hasPointer)
        return Theme::withOpacity(Theme::tertiary(), unpinnedOpacity);
    if (!hasPointer)
        return Theme::secondary();
    return action == Action::remove ? Theme::destructive() : Theme::primary();
}

} // namespace

ClipboardRowView::ClipboardRowView(const ClipboardListModel& rows, ClipboardRowActions& actions)
    : m_rows(rows)
    , m_actions(actions)
    , m_previews(maxCachedPreviews)
{
}

const ClipboardItem& ClipboardRowView::itemAt(const QModelIndex& index) const
{
    return m_rows.item(index.row());
}

int ClipboardRowView::heightOfRow(int row) const
{
    const bool isImage = m_rows.item(row).kind == ClipboardItem::Kind::image;
    return RowLayout::dividerHeight +
           (isImage ? RowLayout::imageRowHeight : RowLayout::textRowHeight);
}

QString ClipboardRowView::help() const
{
    return u"Click to paste at the caret"_s;
}

std::vector<RowButton> ClipboardRowView::buttons(const QModelIndex& index, QSize rowSize) const
{
    const ClipboardItem& item = itemAt(index);
    const std::vector<Action> actions = buttonActions(item);
    const auto rects = buttonRects(RowLayout(rowSize, RowPainting::timeWidth()), actions.size());
    std::vector<RowButton> buttons;
    for (size_t i = 0; i < actions.size(); ++i)
        buttons.push_back({.rect = rects[i],
                           .help = ClipboardRowActions::help(actions[i], item),
                           .visibility = actions[i] == Action::togglePin
                                             ? RowButton::Visibility::always
                                             : RowButton::Visibility::revealed,
                           .isEnabled = !m_actions.isBusy(actions[i], item)});
    return buttons;
}

void ClipboardRowView::pick(const QModelIndex& index)
{
    m_actions.pick(itemAt(index));
}

void ClipboardRowView::press(const QModelIndex& index, int button)
{
    const ClipboardItem& item = itemAt(index);
    m_actions.perform(buttonActions(item)[static_cast<size_t>(button)], item);
}

void ClipboardRowView::paint(QPainter& painter, const QRect& rect, const QModelIndex& index,
                             const RowState& state) const
{
    const ClipboardItem& item = itemAt(index);
    const RowLayout layout(rect.size(), RowPainting::timeWidth());
    painter.save();
    RowPainting::paintBackground(painter, rect, layout, state);
    if (item.kind == ClipboardItem::Kind::image)
        paintPicture(painter, index, layout);
    else
        paintText(painter, item, layout.content());

    RowPainting::paintTime(painter, layout.time(),
                           index.data(ClipboardListModel::TimeRole).toString());

    const std::vector<Action> actions = buttonActions(item);
    const std::vector<QRect> rects = buttonRects(layout, actions.size());
    for (size_t i = 0; i < actions.size(); ++i) {
        if (actions[i] == Action::togglePin || state.isRevealed())
            paintButton(painter, rects[i], actions[i], item, state, static_cast<int>(i));
    }
    painter.restore();
}

const PreviewText& ClipboardRowView::preview(const ClipboardItem& item, qreal width) const
{
    const QFont font = Theme::Font::rowTitle();
    if (const PreviewText* cached = m_previews.object(item.id); cached && cached->fits(font, width))
        return *cached;
    auto* created = new PreviewText(previewLines(previewText(item)), font, width);
    m_previews.insert(item.id, created);
    return *created;
}

void ClipboardRowView::paintText(QPainter& painter, const ClipboardItem& item,
                                 const QRect& area) const
{
    painter.setPen(Theme::primary());
    preview(item, area.width()).paint(painter, area);
}

void ClipboardRowView::paintPicture(QPainter& painter, const QModelIndex& index,
                                    const RowLayout& layout) const
{
    const auto picture = index.data(ClipboardListModel::PictureRole).value<QImage>();
    const QSize size =
        picture.isNull()
            ? placeholderSize
            : picture.deviceIndependentSize().toSize().boundedTo(ThumbnailCache::maxSize);
    constexpr qreal radius = RowLayout::cornerRadius;
    const QRectF area({}, size);
    // A brush instead of a clip path, because clipping is not antialiased.
    painter.save();
    painter.translate(layout.picture(size).topLeft());
    painter.setPen(Qt::NoPen);
    painter.setBrush(picture.isNull() ? QBrush(Theme::hoverFill()) : QBrush(picture));
    painter.drawRoundedRect(area, radius, radius);
    if (!picture.isNull()) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(Theme::withOpacity(Theme::primary(), outlineOpacity), 1.0));
        painter.drawRoundedRect(area.adjusted(0.5, 0.5, -0.5, -0.5), radius - 0.5, radius - 0.5);
    }
    painter.restore();
}

void ClipboardRowView::paintButton(QPainter& painter, const QRect& area, Action action,
                                   const ClipboardItem& item, const RowState& state,
                                   int button) const
{
    if (m_actions.isBusy(action, item))
        return paintBusyIndicator(painter, area);
    const QColor color = buttonColor(action, item, state.buttonUnderPointer == button);
    RowPainting::paintButton(painter, area, ClipboardRowActions::systemImage(action), color, state,
                             button);
}

void ClipboardRowView::paintBusyIndicator(QPainter& painter, const QRect& area) const
{
    constexpr qreal diameter = 12.0;
    constexpr int sixteenths = 16; // QPainter's angles are in 1/16 degree
    constexpr int gap = 90;
    QRectF circle(0, 0, diameter, diameter);
    circle.moveCenter(QRectF(area).center());
    QPen pen(Theme::secondary(), 1.6);
    pen.setCapStyle(Qt::RoundCap);
    painter.setPen(pen);
    painter.drawArc(circle, -m_busyAngle * sixteenths, -(360 - gap) * sixteenths);
}

} // namespace driftbox
