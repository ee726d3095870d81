#pragma once

#include "clipboard/ClipboardRowActions.h"
#include "panel/MagicPanelSection.h"
#include "ui/controls/TextExchange.h"

namespace driftbox {

class ClipboardViewModel;
class Clock;

/// The clipboard history as a section of the panel.
class ClipboardSection final : public MagicPanelSection
{
public:
    /// `viewModel` and `clock` must outlive the section and its views.
    ClipboardSection(ClipboardViewModel& viewModel, const Clock& clock,
                     const TextExchange& exchange, ClipboardRowActions::MakeNote onMakeNote);

    [[nodiscard]] QString id() const override;
    [[nodiscard]] QString title() const override;
    [[nodiscard]] QString systemImage() const override;
    [[nodiscard]] QWidget* makeRootView(QWidget* parent) override;

private:
    ClipboardViewModel& m_viewModel;
    const Clock& m_clock;
    TextExchange m_exchange;
    ClipboardRowActions::MakeNote m_onMakeNote;
};

} // namespace driftbox
