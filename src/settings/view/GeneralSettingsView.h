#pragma once

#include "settings/GeneralSettings.h"
#include "settings/view/FormPage.h"

class QComboBox;
class QSlider;

namespace driftbox {

class FormLabel;
class FormSection;
class StatusLine;
class ToggleRow;

/// The general page: the double tap, launching at login, and the permission that the double tap
/// needs.
class GeneralSettingsView final : public FormPage
{
    Q_OBJECT

public:
    /// The references in `services` must outlive the page.
    GeneralSettingsView(const SettingsServices& services, QWidget* parent);

protected:
    void showEvent(QShowEvent* event) override;

private:
    [[nodiscard]] FormSection* makeHotkeySection();
    [[nodiscard]] FormSection* makeStartupSection();
    [[nodiscard]] FormSection* makeAccessibilitySection();
    void addModifierRow(FormSection& section);
    void addSpeedRow(FormSection& section);
    void refresh();
    void applySpeed();

    GeneralSettings m_model;
    ToggleRow* m_enabled = nullptr;
    QComboBox* m_modifier = nullptr;
    QWidget* m_modifierRow = nullptr;
    QSlider* m_speed = nullptr;
    FormLabel* m_speedValue = nullptr;
    QWidget* m_speedRow = nullptr;
    ToggleRow* m_launch = nullptr;
    StatusLine* m_status = nullptr;
};

} // namespace driftbox
