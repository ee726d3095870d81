#pragma once

#include "core/HotkeyModifier.h"
#include "settings/SettingsServices.h"

#include <QtCore/QObject>

namespace driftbox {

/// Model of the general settings page. Changes take effect at once. Main thread only.
class GeneralSettings : public QObject
{
    Q_OBJECT

public:
    static constexpr int minThresholdMs = 150; ///< at the end labeled "Slow"
    static constexpr int maxThresholdMs = 600;
    static constexpr int stepMs = 50;

    /// The references in `services` must outlive this.
    explicit GeneralSettings(const SettingsServices& services, QObject* parent = nullptr);

    /// Setting a property to its current value has no effect.
    [[nodiscard]] bool isHotkeyEnabled() const;
    void setHotkeyEnabled(bool enabled);

    [[nodiscard]] HotkeyModifier modifier() const;
    void setModifier(HotkeyModifier modifier);

    /// In milliseconds; the stored value, which may be outside the offered range.
    [[nodiscard]] qint64 threshold() const;
    /// Stores whole milliseconds.
    void setThreshold(double milliseconds);
    /// The nearest slider position.
    [[nodiscard]] static int nearestStep(double milliseconds);

    [[nodiscard]] bool launchesAtLogin() const;
    void setLaunchesAtLogin(bool launches);

    /// As of the last check; false before the first.
    [[nodiscard]] bool isAccessibilityGranted() const { return m_accessibilityGranted; }
    void recheckAccessibility();
    void openAccessibilitySettings() const { m_services.openAccessibilitySettings(); }
    void requestAccessibility() const { m_services.requestAccessibilityTrust(); }

    [[nodiscard]] QString toggleLabel() const;
    [[nodiscard]] QString thresholdText() const;
    [[nodiscard]] QString accessibilityText() const;

Q_SIGNALS:
    /// At least one of the displayed values has changed.
    void changed();

private:
    SettingsServices m_services;
    bool m_accessibilityGranted = false;
};

} // namespace driftbox
