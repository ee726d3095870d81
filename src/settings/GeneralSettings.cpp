#include "settings/GeneralSettings.h"

#include "core/AppSettings.h"
#include "settings/ModifierName.h"

#include <algorithm>
#include <cmath>
#include <utility>

using namespace Qt::StringLiterals;

namespace driftbox {

GeneralSettings::GeneralSettings(const SettingsServices& services, QObject* parent)
    : QObject(parent)
    , m_services(services)
{
    const AppSettings& settings = m_services.settings;
    connect(&settings, &AppSettings::hotkeyEnabledChanged, this, &GeneralSettings::changed);
    connect(&settings, &AppSettings::hotkeyModifierChanged, this, &GeneralSettings::changed);
    connect(&settings, &AppSettings::hotkeyThresholdMsChanged, this, &GeneralSettings::changed);
    connect(&settings, &AppSettings::launchAtLoginChanged, this, &GeneralSettings::changed);
}

bool GeneralSettings::isHotkeyEnabled() const
{
    return m_services.settings.hotkeyEnabled();
}

void GeneralSettings::setHotkeyEnabled(bool enabled)
{
    if (enabled != isHotkeyEnabled())
        m_services.settings.setHotkeyEnabled(enabled);
}

HotkeyModifier GeneralSettings::modifier() const
{
    return m_services.settings.hotkeyModifier();
}

void GeneralSettings::setModifier(HotkeyModifier modifier)
{
    if (modifier != this->modifier())
        m_services.settings.setHotkeyModifier(modifier);
}

qint64 GeneralSettings::threshold() const
{
    return m_services.settings.hotkeyThresholdMs();
}

void GeneralSettings::setThreshold(double milliseconds)
{
    m_services.settings.setHotkeyThresholdMs(static_cast<qint64>(milliseconds));
}

int GeneralSettings::nearestStep(double milliseconds)
{
    const double steps = std::round((milliseconds - minThresholdMs) / stepMs);
    return static_cast<int>(std::clamp(minThresholdMs + steps * stepMs, double(minThresholdMs),
                                       double(maxThresholdMs)));
}

bool GeneralSettings::launchesAtLogin() const
{
    return m_services.settings.launchAtLogin();
}

void GeneralSettings::setLaunchesAtLogin(bool launches)
{
    if (launches != launchesAtLogin())
        m_services.settings.setLaunchAtLogin(launches);
}

void GeneralSettings::recheckAccessibility()
{
    const bool granted = m_services.isAccessibilityTrusted();
    if (std::exchange(m_accessibilityGranted, granted) != granted)
        Q_EMIT changed();
}

QString GeneralSettings::toggleLabel() const
{
    return u"Enable double-tap %1 to summon"_s.arg(modifierName(modifier()));
}

QString GeneralSettings::thresholdText() const
{
    return u"%1 ms"_s.arg(threshold());
}

QString GeneralSettings::accessibilityText() const
{
    if (m_accessibilityGranted)
        return u"Granted — the global hotkey is active."_s;
    return u"Required for the double-tap %1 hotkey to work across apps."_s.arg(
        modifierName(modifier()));
}

} // namespace driftbox
