#pragma once

#include "settings/SettingsServices.h"
#include "settings/view/FormPage.h"

namespace driftbox {

/// The page about the program: its name and version, the way to its makers, and a tip card.
class AboutSettingsView final : public FormPage
{
    Q_OBJECT

public:
    AboutSettingsView(const SettingsServices& services, QWidget* parent);
};

} // namespace driftbox
