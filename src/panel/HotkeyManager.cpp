#include "panel/HotkeyManager.h"

#include "core/AppSettings.h"
#include "platform/UserDefaults.h"

#include <utility>

#include <QtCore/QLoggingCategory>

using namespace Qt::StringLiterals;

namespace driftbox {

namespace {

Q_LOGGING_CATEGORY(hotkeyManagerLog, "HotkeyManager")

const QString didPromptKey = u"accessibility.didPrompt"_s;

ModifierFlags flagOf(HotkeyModifier modifier)
{
    switch (modifier) {
    case HotkeyModifier::control:
        return ModifierFlag::control;
    case HotkeyModifier::option:
        return ModifierFlag::option;
    case HotkeyModifier::command:
        return ModifierFlag::command;
    }
    Q_UNREACHABLE();
}

} // namespace

HotkeyManager::HotkeyManager(const AppSettings& settings, KeyEventMonitor& keyboard)
    : m_settings(settings)
    , m_keyboard(keyboard)
{
}

void HotkeyManager::start()
{
    if (!m_settings.hotkeyEnabled()) {
        qCInfo(hotkeyManagerLog).noquote()
            << u"Hotkey disabled in settings; not starting monitors"_s;
        return;
    }
    if (!m_keyboard.isTrusted()) {
        qCWarning(hotkeyManagerLog).noquote()
            << u"Accessibility not granted; hotkey monitors will not receive events"_s;
    }
    install();
}

void HotkeyManager::install()
{
    if (m_globalMonitor)
        return;
    const auto handler = [this](const KeyEvent& event) { handle(event); };
    m_globalMonitor = m_keyboard.addMonitor(KeyEventScope::global, handler);
    m_localMonitor = m_keyboard.addMonitor(KeyEventScope::local, handler);
    qCInfo(hotkeyManagerLog).noquote() << u"Hotkey monitors installed"_s;
}

void HotkeyManager::uninstall()
{
    m_globalMonitor.reset();
    m_localMonitor.reset();
}

void HotkeyManager::restart()
{
    uninstall();
    m_detector.reset();
    m_previousFlags = 0;
    start();
}

void HotkeyManager::handle(const KeyEvent& event)
{
    switch (event.kind) {
    case KeyEventKind::flagsChanged:
        handleFlagsChanged(event);
        break;
    case KeyEventKind::keyDown:
        m_detector.registerKeyPress();
        break;
    }
}

void HotkeyManager::handleFlagsChanged(const KeyEvent& event)
{
    const ModifierFlags mask = flagOf(m_settings.hotkeyModifier());
    const ModifierFlags before = std::exchange(m_previousFlags, event.flags);
    if ((event.flags & mask) == 0 || (before & mask) != 0)
        return;

    const DoubleTapDetector::Threshold threshold(
        static_cast<double>(m_settings.hotkeyThresholdMs()) / 1000.0);
    if (m_detector.registerModifierDown(event.time, threshold) && m_onTrigger)
        m_onTrigger();
}

void HotkeyManager::promptForAccessibilityIfNeeded(KeyEventMonitor& keyboard,
                                                   UserDefaults& defaults)
{
    if (keyboard.isTrusted() || defaults.value(didPromptKey) == DefaultsValue(true))
        return;
    defaults.setValue(didPromptKey, true);
    keyboard.requestTrust();
}

} // namespace driftbox
