#pragma once

#include "ui/list/PageFooter.h"

namespace driftbox {

class ClipboardViewModel;

/// The footer of the clipboard page: the total number of items, the number of pinned ones, and a
/// button that clears the others.
class ClipboardFooter final : public PageFooter
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
    CountLabel* m_total;
    CountLabel* m_pinned;
};

} // namespace driftbox
