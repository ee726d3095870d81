#pragma once

#include "panel/MagicPanelSection.h"

namespace driftbox {

class NoteManager;
class Pasteboard;
class PasteboardWriter;

/// The sticky notes as a section of the panel.
class NotesSection final : public MagicPanelSection
{
public:
    /// All must outlive the section and its views.
    NotesSection(NoteManager& manager, const Pasteboard& pasteboard,
                 PasteboardWriter& pasteboardWriter);

    [[nodiscard]] QString id() const override;
    [[nodiscard]] QString title() const override;
    [[nodiscard]] QString systemImage() const override;
    [[nodiscard]] QWidget* makeRootView(QWidget* parent) override;

private:
    NoteManager& m_manager;
    const Pasteboard& m_pasteboard;
    PasteboardWriter& m_pasteboardWriter;
};

} // namespace driftbox
