#pragma once

#include <QtWidgets/QWidget>

class QLabel;

namespace driftbox {

class ClipboardViewModel;
class SymbolButton;

/// The bottom of the clipboard's page: how many items there are, how many are pinned, and a button
/// that clears the others.
class ClipboardFooter final : public QWidget
{
    Q_OBJECT

public:
    /// `viewModel` must outlive the footer.
    ClipboardFooter(ClipboardViewModel& viewModel, QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void showCounts();

    ClipboardViewModel& m_viewModel;
    QLabel* m_total;
    QLabel* m_pinned;
    SymbolButton* m_clearButton;
};

} // namespace driftbox
