#pragma once

#include "settings/ClipboardSettings.h"
#include "settings/view/FormPage.h"

namespace driftbox {

/// The page of the clipboard history: how much of it is kept, and forgetting it.
class ClipboardSettingsView final : public FormPage
{
    Q_OBJECT

public:
    /// What `services` refers to must outlive the page.
    ClipboardSettingsView(const SettingsServices& services, QWidget* parent);

private:
    ClipboardSettings m_model;
};

} // namespace driftbox
