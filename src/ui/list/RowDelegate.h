#pragma once

#include <vector>

#include <QtCore/QModelIndex>
#include <QtCore/QRect>
#include <QtCore/QString>

class QPainter;

namespace driftbox {

/// A button within a row of a list.
struct RowButton
{
    enum class Visibility {
        always,
        revealed, ///< only while the row is hovered or selected
    };

    QRect rect;   ///< within the row
    QString help; ///< tooltip and accessible name
    Visibility visibility = Visibility::revealed;
    bool isEnabled = true;
};

/// The visual state of a row. Buttons are indices into `RowDelegate::buttons`; -1 means none.
struct RowState
{
    bool hasPointer = false;
    bool isSelected = false;
    bool isPressed = false; ///< the row itself is being clicked
    int buttonUnderPointer = -1;
    int pressedButton = -1;

    /// Whether buttons with `Visibility::revealed` are shown.
    [[nodiscard]] bool isRevealed() const { return hasPointer || isSelected; }
};

/// Paints the rows of a `RowListView` and handles clicks on them. The model's
/// `Qt::AccessibleTextRole` provides the rows' accessible names.
class RowDelegate
{
public:
    RowDelegate() = default;
    Q_DISABLE_COPY_MOVE(RowDelegate)
    virtual ~RowDelegate() = default;

    /// The row's height in points. Must not change while the row is in the list.
    [[nodiscard]] virtual int heightOfRow(int row) const = 0;
    /// The tooltip and accessible description of a row.
    [[nodiscard]] virtual QString help() const = 0;
    [[nodiscard]] virtual std::vector<RowButton> buttons(const QModelIndex& index,
                                                         QSize rowSize) const = 0;

    virtual void paint(QPainter& painter, const QRect& rect, const QModelIndex& index,
                       const RowState& state) const = 0;

    /// Called for a click on the row.
    virtual void pick(const QModelIndex& index) = 0;
    /// Called for a click on one of the row's buttons.
    virtual void press(const QModelIndex& index, int button) = 0;
};

} // namespace driftbox
