#include "core/AppSettings.h"

#include "platform/UserDefaults.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace driftbox {

namespace {

namespace Key {
const QString clipboardCapacity = u"settings.clipboardCapacity"_s;
const QString hotkeyEnabled = u"settings.hotkeyEnabled"_s;
const QString hotkeyModifier = u"settings.hotkeyModifier"_s;
const QString hotkeyThresholdMs = u"settings.hotkeyThresholdMs"_s;
const QString launchAtLogin = u"settings.launchAtLogin"_s;
const QString noteDefaultColor = u"settings.noteDefaultColor"_s;
} // namespace Key

// A stored value of the wrong type counts as absent.
template <typename T>
T stored(const UserDefaults& defaults, const QString& key, T fallback)
{
    const auto value = defaults.value(key);
    const T* typed = value ? std::get_if<T>(&*value) : nullptr;
    return typed ? *typed : fallback;
}

} // namespace

AppSettings::AppSettings(UserDefaults& defaults, QObject* parent)
    : QObject(parent)
    , m_defaults(defaults)
    , m_clipboardCapacity(stored<qint64>(defaults, Key::clipboardCapacity, 30))
    , m_hotkeyEnabled(stored(defaults, Key::hotkeyEnabled, true))
    , m_hotkeyModifier(hotkeyModifierFromRawValue(stored(defaults, Key::hotkeyModifier, QString()))
                           .value_or(HotkeyModifier::control))
    , m_hotkeyThresholdMs(stored<qint64>(defaults, Key::hotkeyThresholdMs, 300))
    , m_launchAtLogin(stored(defaults, Key::launchAtLogin, false))
    , m_noteDefaultColor(noteColorFromRawValue(stored(defaults, Key::noteDefaultColor, QString()))
                             .value_or(NoteColor::yellow))
{
}

void AppSettings::setClipboardCapacity(qint64 capacity)
{
    m_defaults.setValue(Key::clipboardCapacity, capacity);
    if (std::exchange(m_clipboardCapacity, capacity) != capacity)
        Q_EMIT clipboardCapacityChanged();
}

void AppSettings::setHotkeyEnabled(bool enabled)
{
    m_defaults.setValue(Key::hotkeyEnabled, enabled);
    if (std::exchange(m_hotkeyEnabled, enabled) != enabled)
        Q_EMIT hotkeyEnabledChanged();
}

void AppSettings::setHotkeyModifier(HotkeyModifier modifier)
{
    m_defaults.setValue(Key::hotkeyModifier, rawValue(modifier));
    if (std::exchange(m_hotkeyModifier, modifier) != modifier)
        Q_EMIT hotkeyModifierChanged();
}

void AppSettings::setHotkeyThresholdMs(qint64 milliseconds)
{
    m_defaults.setValue(Key::hotkeyThresholdMs, milliseconds);
    if (std::exchange(m_hotkeyThresholdMs, milliseconds) != milliseconds)
        Q_EMIT hotkeyThresholdMsChanged();
}

void AppSettings::setLaunchAtLogin(bool launch)
{
    m_defaults.setValue(Key::launchAtLogin, launch);
    if (std::exchange(m_launchAtLogin, launch) != launch)
        Q_EMIT launchAtLoginChanged();
}

void AppSettings::setNoteDefaultColor(NoteColor color)
{
    m_defaults.setValue(Key::noteDefaultColor, rawValue(color));
    if (std::exchange(m_noteDefaultColor, color) != color)
        Q_EMIT noteDefaultColorChanged();
}

} // namespace driftbox
