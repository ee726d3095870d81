#pragma once

#include "clipboard/ClipboardItem.h"

#include <vector>

#include <QtCore/QAbstractListModel>

namespace driftbox {

class ClipboardViewModel;
class Clock;

/// The visible items of the clipboard history as rows. Changes of the history arrive as insertions,
/// removals and moves of the rows concerned, unless they leave almost nothing in place; that and
/// every other query reset the model.
class ClipboardListModel : public QAbstractListModel
{
    Q_OBJECT

public:
    enum Role {
        KindRole = Qt::UserRole, ///< ClipboardItem::Kind
        PreviewRole,             ///< QString; what a row shows of a text
        TimeRole,                ///< QString; when it was captured
        PinnedRole,              ///< bool
        HasRichTextRole,         ///< bool; whether there is more to paste than plain text
        PictureRole,             ///< QImage; null while there is none
        RecognizingRole,         ///< bool; whether the text in the picture is being recognised
    };

    /// `viewModel` and `clock` must outlive the model.
    ClipboardListModel(ClipboardViewModel& viewModel, const Clock& clock,
                       QObject* parent = nullptr);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    /// Besides the roles: the accessible text of a row.
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

    /// The item of a row; `row` must exist.
    [[nodiscard]] const ClipboardItem& item(int row) const
    {
        return m_items[static_cast<size_t>(row)];
    }
    /// Minus one when the item is not visible.
    [[nodiscard]] int rowOf(const ClipboardItemId& id) const;

private:
    void startOver();
    void update();
    void replace(const std::vector<ClipboardItem>& items);
    void removeRowsNotIn(const std::vector<ClipboardItem>& items);
    void moveAndInsertRows(const std::vector<ClipboardItem>& items);
    void notifyRow(const ClipboardItemId& id, int role);
    [[nodiscard]] QString accessibleText(const ClipboardItem& item) const;

    ClipboardViewModel& m_viewModel;
    const Clock& m_clock;
    std::vector<ClipboardItem> m_items;
};

/// What a row shows of a text item: its text without the white space around it, unless there is
/// nothing else.
[[nodiscard]] QString previewText(const ClipboardItem& item);

} // namespace driftbox
