#pragma once

#include "clipboard/ClipboardRowActions.h"
#include "ui/list/PreviewText.h"
#include "ui/list/RowDelegate.h"

#include <QtCore/QCache>

namespace driftbox {

class ClipboardListModel;
class RowLayout;

/// A row of the history: its text or picture, the capture time, the pin, and the actions that are
/// shown while the row is hovered or selected.
class ClipboardRowView final : public RowDelegate
{
public:
    /// Both arguments must outlive this.
    ClipboardRowView(const ClipboardListModel& rows, ClipboardRowActions& actions);

    /// The rotation of busy indicators, in degrees.
    void setBusyAngle(int degrees) { m_busyAngle = degrees; }

    [[nodiscard]] int heightOfRow(int row) const override;
    [[nodiscard]] QString help() const override;
    /// The hover actions, then the pin.
    [[nodiscard]] std::vector<RowButton> buttons(const QModelIndex& index,
                                                 QSize rowSize) const override;
    void paint(QPainter& painter, const QRect& rect, const QModelIndex& index,
               const RowState& state) const override;
    void pick(const QModelIndex& index) override;
    void press(const QModelIndex& index, int button) override;

private:
    [[nodiscard]] const ClipboardItem& itemAt(const QModelIndex& index) const;
    [[nodiscard]] const PreviewText& preview(const ClipboardItem& item, qreal width) const;
    void paintText(QPainter& painter, const ClipboardItem& item, const QRect& area) const;
    void paintPicture(QPainter& painter, const QModelIndex& index, const RowLayout& layout) const;
    void paintButton(QPainter& painter, const QRect& area, ClipboardRowAction action,
                     const ClipboardItem& item, const RowState& state, int button) const;
    void paintBusyIndicator(QPainter& painter, const QRect& area) const;

    const ClipboardListModel& m_rows;
    ClipboardRowActions& m_actions;
    int m_busyAngle = 0;
    mutable QCache<ClipboardItemId, PreviewText> m_previews; ///< of recently painted rows
};

} // namespace driftbox
