#pragma once

#include "settings/NotesSettings.h"
#include "settings/view/FormPage.h"

namespace driftbox {

/// The notes page: the default color, and closing all notes.
class NotesSettingsView final : public FormPage
{
    Q_OBJECT

public:
    /// The references in `services` must outlive the page.
    NotesSettingsView(const SettingsServices& services, QWidget* parent);

private:
    [[nodiscard]] QWidget* makeSwatches(QWidget* parent);

    NotesSettings m_model;
};

} // namespace driftbox
