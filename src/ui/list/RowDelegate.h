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
        revealed, ///< only while the row has the pointer or is selected
    };

    QRect rect;   ///< within the row
    QString help; ///< tooltip and accessible name
    Visibility visibility = Visibility::revealed;
    bool isEnabled = true;
};

/// How a row shows at the moment. Buttons are counted as in `RowDelegate::buttons`; minus one means
/// none.
struct RowState
{
    bool hasPointer = false;
    bool isSelected = false;
    bool isPressed = false; ///< a click on the row itself is under way
    int buttonUnderPointer = -1;
    int pressedButton = -1;

    /// Whether the buttons show that do not always.
    [[nodiscard]] bool isRevealed() const { return hasPointer || isSelected; }
};

/// What the rows of a `RowListView` look like and what clicks on them do. The rows' accessible
/// names are their model's `Qt::AccessibleTextRole`.
class RowDelegate
{
public:
    RowDelegate() = default;
    Q_DISABLE_COPY_MOVE(RowDelegate)
    virtual ~RowDelegate() = default;

    /// The row's height in points; it must not change while the row is in the list.
    [[nodiscard]] virtual int heightOfRow(int row) const = 0;
    /// The help of a row as a whole.
    [[nodiscard]] virtual QString help() const = 0;
    [[nodiscard]] virtual std::vector<RowButton> buttons(const QModelIndex& index,
                                                         QSize rowSize) const = 0;

    virtual void paint(QPainter& painter, const QRect& rect, const QModelIndex& index,
                       const RowState& state) const = 0;

    /// A click on the row.
    virtual void pick(const QModelIndex& index) = 0;
    /// A click on one of its buttons.
    virtual void press(const QModelIndex& index, int button) = 0;
};

} // namespace driftbox
