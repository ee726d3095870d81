#pragma once

#include "core/HotkeyModifier.h"
#include "core/NoteColor.h"

#include <QtCore/QObject>

namespace driftbox {

class UserDefaults;

/// The user's preferences. Loaded once, at construction, which writes nothing. Setters store the
/// value immediately and emit a signal only if it changed. Integers are not range-checked: the
/// settings pages limit what the user can enter. Main thread only.
class AppSettings : public QObject
{
    Q_OBJECT

public:
    /// `defaults` must outlive the settings.
    explicit AppSettings(UserDefaults& defaults, QObject* parent = nullptr);

    /// The maximum number of unpinned clipboard entries.
    [[nodiscard]] qint64 clipboardCapacity() const { return m_clipboardCapacity; }
    void setClipboardCapacity(qint64 capacity);

    [[nodiscard]] bool hotkeyEnabled() const { return m_hotkeyEnabled; }
    void setHotkeyEnabled(bool enabled);

    [[nodiscard]] HotkeyModifier hotkeyModifier() const { return m_hotkeyModifier; }
    void setHotkeyModifier(HotkeyModifier modifier);

    /// The maximum time between the two taps, in milliseconds.
    [[nodiscard]] qint64 hotkeyThresholdMs() const { return m_hotkeyThresholdMs; }
    void setHotkeyThresholdMs(qint64 milliseconds);

    [[nodiscard]] bool launchAtLogin() const { return m_launchAtLogin; }
    void setLaunchAtLogin(bool launch);

    [[nodiscard]] NoteColor noteDefaultColor() const { return m_noteDefaultColor; }
    void setNoteDefaultColor(NoteColor color);

Q_SIGNALS:
    void clipboardCapacityChanged();
    void hotkeyEnabledChanged();
    void hotkeyModifierChanged();
    void hotkeyThresholdMsChanged();
    void launchAtLoginChanged();
    void noteDefaultColorChanged();

private:
    UserDefaults& m_defaults;
    qint64 m_clipboardCapacity;
    bool m_hotkeyEnabled;
    HotkeyModifier m_hotkeyModifier;
    qint64 m_hotkeyThresholdMs;
    bool m_launchAtLogin;
    NoteColor m_noteDefaultColor;
};

} // namespace driftbox
