#pragma once

#include "settings/SettingsServices.h"
#include "settings/view/FormPage.h"

namespace driftbox {

/// The About page: the program's name and version, a feedback button, and a tip card.
class AboutSettingsView final : public FormPage
{
    Q_OBJECT

public:
    AboutSettingsView(const SettingsServices& services, QWidget* parent);
};

} // namespace driftbox
