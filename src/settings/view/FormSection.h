#pragma once

#include <QtWidgets/QWidget>

class QVBoxLayout;

namespace driftbox {

/// Rows that belong together, on a card with lines between them and, where there is one, a title
/// above.
class FormSection final : public QWidget
{
    Q_OBJECT

public:
    /// Between the edge of the card and what is in its rows.
    static constexpr int sidePadding = 14;

    FormSection(const QString& title, QWidget* parent);

    /// Takes the row over. It fills the card from side to side.
    void addRow(QWidget* row);

    /// Adds a row that holds only this, as large as it wants to be.
    void addRow(QWidget* part, Qt::Alignment alignment);

    /// Adds a row of these parts, which need no padding of their own. A part that stretches takes
    /// the room that is left; with none the room is at the end.
    QWidget* addRow(std::initializer_list<QWidget*> parts, const QWidget* stretching);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QWidget* m_card;
    QVBoxLayout* m_rows;
};

} // namespace driftbox
