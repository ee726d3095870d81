#pragma once

#include "settings/ClipboardSettings.h"
#include "settings/view/FormPage.h"

namespace driftbox {

/// The clipboard page: the capacity of the history, and clearing it.
class ClipboardSettingsView final : public FormPage
{
    Q_OBJECT

public:
    /// The references in `services` must outlive the page.
    ClipboardSettingsView(const SettingsServices& services, QWidget* parent);

private:
    ClipboardSettings m_model;
};

} // namespace driftbox
