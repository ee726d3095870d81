#pragma once

#include <QtWidgets/QWidget>

class QVBoxLayout;

namespace driftbox {

/// A card of related rows with divider lines between them and an optional title above.
class FormSection final : public QWidget
{
    Q_OBJECT

public:
    /// The padding between the card's edges and the content of its rows.
    static constexpr int sidePadding = 14;

    FormSection(const QString& title, QWidget* parent);

    /// Takes ownership of the row, which fills the width of the card.
    void addRow(QWidget* row);

    /// Adds a row with a single widget in its preferred size.
    void addRow(QWidget* part, Qt::Alignment alignment);

    /// Adds a row of parts, which need no padding of their own. The part `stretching` takes the
    /// remaining space.
    QWidget* addRow(std::initializer_list<QWidget*> parts, const QWidget* stretching);

    /// Adds a row of parts in their preferred sizes, wrapped onto further lines where it is too
    /// long.
    void addWrappingRow(std::initializer_list<QWidget*> parts);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QWidget* m_card;
    QVBoxLayout* m_rows;
};

} // namespace driftbox
