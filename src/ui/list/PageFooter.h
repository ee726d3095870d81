#pragma once

#include <QtWidgets/QWidget>

class QHBoxLayout;

namespace driftbox {

class CountLabel;
class SymbolButton;

/// The footer of a page: counts at the left and, at the right, a button that applies to the whole
/// list.
class PageFooter : public QWidget
{
    Q_OBJECT

public:
    PageFooter(const QString& systemImage, const QString& label, const QString& help,
               QWidget* parent);

    /// Appends a count.
    [[nodiscard]] CountLabel* addCount();
    [[nodiscard]] SymbolButton& button() const { return *m_button; }

private:
    QHBoxLayout* m_counts;
    SymbolButton* m_button;
};

} // namespace driftbox
