#pragma once

#include "core/HotkeyModifier.h"
#include "settings/SettingsServices.h"

#include <QtCore/QObject>

namespace driftbox {

/// What the page of the general settings shows and does. Changes act at once. Main thread only.
class GeneralSettings : public QObject
{
    Q_OBJECT

public:
    static constexpr int minThresholdMs = 150; ///< at the end that is labeled so
    static constexpr int maxThresholdMs = 600;
    static constexpr int stepMs = 50;

    /// What `services` refers to must outlive this.
    explicit GeneralSettings(const SettingsServices& services, QObject* parent = nullptr);

    /// Setting one of these to what it is does nothing.
    [[nodiscard]] bool isHotkeyEnabled() const;
    void setHotkeyEnabled(bool enabled);

    [[nodiscard]] HotkeyModifier modifier() const;
    void setModifier(HotkeyModifier modifier);

    /// Milliseconds; as they are stored, whatever the range that is offered.
    [[nodiscard]] qint64 threshold() const;
    /// Stores whole milliseconds.
    void setThreshold(double milliseconds);
    /// The position of the slider that is nearest.
    [[nodiscard]] static int nearestStep(double milliseconds);

    [[nodiscard]] bool launchesAtLogin() const;
    void setLaunchesAtLogin(bool launches);

    /// As of the last look; false before the first.
    [[nodiscard]] bool isAccessibilityGranted() const { return m_accessibilityGranted; }
    void recheckAccessibility();
    void openAccessibilitySettings() const { m_services.openAccessibilitySettings(); }
    void requestAccessibility() const { m_services.requestAccessibilityTrust(); }

    [[nodiscard]] QString toggleLabel() const;
    [[nodiscard]] QString thresholdText() const;
    [[nodiscard]] QString accessibilityText() const;

Q_SIGNALS:
    /// Something that is shown differs.
    void changed();

private:
    SettingsServices m_services;
    bool m_accessibilityGranted = false;
};

} // namespace driftbox
