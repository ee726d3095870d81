#pragma once

#include "settings/SettingsServices.h"
#include "settings/view/FormPage.h"

namespace driftbox {

/// The page of the sticky notes: the color of new ones, and closing all.
class NotesSettingsView final : public FormPage
{
    Q_OBJECT

public:
    /// What `services` refers to must outlive the page.
    NotesSettingsView(const SettingsServices& services, QWidget* parent);

private:
    [[nodiscard]] QWidget* makeSwatches(AppSettings& settings, QWidget* parent);
};

} // namespace driftbox
