#include "clipboard/ClipboardListModel.h"

#include "clipboard/ClipboardViewModel.h"
#include "clipboard/RelativeTime.h"
#include "platform/Clock.h"

#include <algorithm>

#include <QtCore/QSet>

using namespace Qt::StringLiterals;

namespace driftbox {

using Kind = ClipboardItem::Kind;

namespace {

// With more rows than this to take out or put in, telling each costs more than starting over.
constexpr size_t mostRowChanges = 64;

QSet<ClipboardItemId> idsOf(const std::vector<ClipboardItem>& items)
{
    QSet<ClipboardItemId> ids;
    ids.reserve(static_cast<qsizetype>(items.size()));
    for (const ClipboardItem& item : items)
        ids.insert(item.id);
    return ids;
}

size_t countNotIn(const QSet<ClipboardItemId>& ids, const std::vector<ClipboardItem>& items)
{
    return static_cast<size_t>(std::ranges::count_if(
        items, [&ids](const ClipboardItem& item) { return !ids.contains(item.id); }));
}

} // namespace

QString previewText(const ClipboardItem& item)
{
    const QString text = item.textContent.value_or(QString());
    if (text.isEmpty())
        return u"(empty)"_s;
    const QString trimmed = text.trimmed();
    return trimmed.isEmpty() ? text : trimmed;
}

ClipboardListModel::ClipboardListModel(ClipboardViewModel& viewModel, const Clock& clock,
                                       QObject* parent)
    : QAbstractListModel(parent)
    , m_viewModel(viewModel)
    , m_clock(clock)
    , m_items(viewModel.visibleItems())
{
    connect(&viewModel, &ClipboardViewModel::itemsChanged, this, &ClipboardListModel::update);
    connect(&viewModel, &ClipboardViewModel::queryChanged, this, &ClipboardListModel::startOver);
    connect(&viewModel, &ClipboardViewModel::imageChanged, this,
            [this](const ClipboardItemId& id) { notifyRow(id, PictureRole); });
    connect(&viewModel, &ClipboardViewModel::ocrProcessingIdChanged, this, [this] {
        if (!m_items.empty())
            Q_EMIT dataChanged(index(0), index(rowCount() - 1), {RecognizingRole});
    });
}

int ClipboardListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_items.size());
}

QVariant ClipboardListModel::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const ClipboardItem& item = this->item(index.row());
    switch (role) {
    case KindRole:
        return QVariant::fromValue(item.kind);
    case PreviewRole:
        return previewText(item);
    case TimeRole:
        return item.createdAt.toLocalTime().toString(u"MM-dd HH:mm:ss");
    case PinnedRole:
        return item.isPinned();
    case HasRichTextRole:
        return item.kind == Kind::text && item.rtfData.has_value();
    case PictureRole:
        return m_viewModel.image(item);
    case RecognizingRole:
        return m_viewModel.ocrProcessingId() == item.id;
    case Qt::AccessibleTextRole:
        return accessibleText(item);
    default:
        return {};
    }
}

QString ClipboardListModel::accessibleText(const ClipboardItem& item) const
{
    if (item.kind == Kind::text)
        return u"Text: "_s + previewText(item);
    return u"Image, "_s + relativeTime(item.createdAt, m_clock.now(), QLocale());
}

int ClipboardListModel::rowOf(const ClipboardItemId& id) const
{
    const auto found = std::ranges::find(m_items, id, &ClipboardItem::id);
    return found == m_items.end() ? -1 : static_cast<int>(found - m_items.begin());
}

void ClipboardListModel::notifyRow(const ClipboardItemId& id, int role)
{
    if (const int row = rowOf(id); row >= 0)
        Q_EMIT dataChanged(index(row), index(row), {role});
}

void ClipboardListModel::startOver()
{
    beginResetModel();
    m_items = m_viewModel.visibleItems();
    endResetModel();
}

void ClipboardListModel::update()
{
    const std::vector<ClipboardItem> items = m_viewModel.visibleItems();
    const size_t changes = countNotIn(idsOf(items), m_items) + countNotIn(idsOf(m_items), items);
    if (changes > mostRowChanges)
        return startOver();
    replace(items);
}

void ClipboardListModel::replace(const std::vector<ClipboardItem>& items)
{
    removeRowsNotIn(items);
    moveAndInsertRows(items);
    for (int row = 0; row < rowCount(); ++row) {
        ClipboardItem& mine = m_items[static_cast<size_t>(row)];
        const ClipboardItem& wanted = items[static_cast<size_t>(row)];
        if (mine.pinnedAt != wanted.pinnedAt) { // the only thing about an item that changes
            mine = wanted;
            Q_EMIT dataChanged(index(row), index(row));
        }
    }
}

void ClipboardListModel::removeRowsNotIn(const std::vector<ClipboardItem>& items)
{
    const QSet<ClipboardItemId> kept = idsOf(items);
    for (int row = rowCount() - 1; row >= 0; --row) {
        if (kept.contains(item(row).id))
            continue;
        beginRemoveRows({}, row, row);
        m_items.erase(m_items.begin() + row);
        endRemoveRows();
    }
}

void ClipboardListModel::moveAndInsertRows(const std::vector<ClipboardItem>& items)
{
    QSet<ClipboardItemId> known = idsOf(m_items);
    for (int row = 0; row < static_cast<int>(items.size()); ++row) {
        const ClipboardItem& wanted = items[static_cast<size_t>(row)];
        if (row < rowCount() && item(row).id == wanted.id)
            continue;
        if (!known.contains(wanted.id)) {
            beginInsertRows({}, row, row);
            m_items.insert(m_items.begin() + row, wanted);
            endInsertRows();
            continue;
        }
        const int from = rowOf(wanted.id);
        beginMoveRows({}, from, from, {}, row);
        std::rotate(m_items.begin() + row, m_items.begin() + from, m_items.begin() + from + 1);
        endMoveRows();
    }
}

} // namespace driftbox
