#pragma once

#include <QtWidgets/QWidget>

class QHBoxLayout;

namespace driftbox {

class CountLabel;
class SymbolButton;

/// The bottom of a page: counts from the left on, and a button for all that the page lists at the
/// right.
class PageFooter : public QWidget
{
    Q_OBJECT

public:
    PageFooter(const QString& systemImage, const QString& label, const QString& help,
               QWidget* parent);

    /// Adds a count behind those that are there.
    [[nodiscard]] CountLabel* addCount();
    [[nodiscard]] SymbolButton& button() const { return *m_button; }

private:
    QHBoxLayout* m_counts;
    SymbolButton* m_button;
};

} // namespace driftbox
