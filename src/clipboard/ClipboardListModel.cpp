#include "clipboard/ClipboardListModel.h"

#include "clipboard/ClipboardViewModel.h"
#include "clipboard/RelativeTime.h"
#include "core/RowTime.h"
#include "platform/Clock.h"

using namespace Qt::StringLiterals;

namespace driftbox {

using Kind = ClipboardItem::Kind;

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
    : RecordListModel(viewModel.visibleItems(), parent)
    , m_viewModel(viewModel)
    , m_clock(clock)
{
    connect(&viewModel, &ClipboardViewModel::itemsChanged, this, &ClipboardListModel::update);
    connect(&viewModel, &ClipboardViewModel::queryChanged, this,
            [this] { resetRecords(m_viewModel.visibleItems()); });
    connect(&viewModel, &ClipboardViewModel::imageChanged, this,
            [this](const ClipboardItemId& id) { notifyRow(id, PictureRole); });
    connect(&viewModel, &ClipboardViewModel::ocrProcessingIdChanged, this, [this] {
        if (rowCount() > 0)
            Q_EMIT dataChanged(index(0), index(rowCount() - 1));
    });
}

QVariant ClipboardListModel::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const ClipboardItem& item = this->item(index.row());
    switch (role) {
    case TimeRole:
        return rowTime(item.createdAt);
    case PictureRole:
        return m_viewModel.image(item);
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

void ClipboardListModel::notifyRow(const ClipboardItemId& id, int role)
{
    if (const int row = rowOf(id); row >= 0)
        Q_EMIT dataChanged(index(row), index(row), {role});
}

void ClipboardListModel::update()
{
    // An item's pin is all that ever changes.
    setRecords(m_viewModel.visibleItems(),
               [](const ClipboardItem& one, const ClipboardItem& other) {
                   return one.pinnedAt == other.pinnedAt;
               });
}

} // namespace driftbox
