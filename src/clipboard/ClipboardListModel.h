#pragma once

#include "clipboard/ClipboardItem.h"
#include "core/RecordListModel.h"

namespace driftbox {

class ClipboardViewModel;
class Clock;

/// The visible items of the clipboard history as rows. A change of the query resets the model.
class ClipboardListModel : public RecordListModel<ClipboardItem>
{
    Q_OBJECT

public:
    enum Role {
        TimeRole = Qt::UserRole, ///< QString; when it was captured
        PictureRole,             ///< QImage; null while there is none
    };

    /// `viewModel` and `clock` must outlive the model.
    ClipboardListModel(ClipboardViewModel& viewModel, const Clock& clock,
                       QObject* parent = nullptr);

    /// Besides the roles: the accessible text of a row.
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

    /// The item of a row; `row` must exist.
    [[nodiscard]] const ClipboardItem& item(int row) const { return record(row); }

private:
    void update();
    void notifyRow(const ClipboardItemId& id, int role);
    [[nodiscard]] QString accessibleText(const ClipboardItem& item) const;

    ClipboardViewModel& m_viewModel;
    const Clock& m_clock;
};

/// The preview of a text item: its text without surrounding white space, unless it consists of
/// nothing else.
[[nodiscard]] QString previewText(const ClipboardItem& item);

} // namespace driftbox
