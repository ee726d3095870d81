#pragma once

#include "panel/MagicPanelSection.h"
#include "ui/controls/TextExchange.h"

namespace driftbox {

class NoteManager;

/// The sticky notes as a section of the panel.
class NotesSection final : public MagicPanelSection
{
public:
    /// `manager` must outlive the section and its views.
    NotesSection(NoteManager& manager, const TextExchange& exchange);

    [[nodiscard]] QString id() const override;
    [[nodiscard]] QString title() const override;
    [[nodiscard]] QString systemImage() const override;
    [[nodiscard]] QWidget* makeRootView(QWidget* parent) override;

private:
    NoteManager& m_manager;
    TextExchange m_exchange;
};

} // namespace driftbox
