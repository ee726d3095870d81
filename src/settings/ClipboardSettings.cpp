#include "settings/ClipboardSettings.h"

#include "clipboard/ClipboardViewModel.h"
#include "core/AppSettings.h"

#include <algorithm>

namespace driftbox {

ClipboardSettings::ClipboardSettings(const SettingsServices& services, QObject* parent)
    : QObject(parent)
    , m_services(services)
{
    connect(&m_services.settings, &AppSettings::clipboardCapacityChanged, this,
            &ClipboardSettings::capacityChanged);
    connect(&m_services.clipboard, &ClipboardViewModel::itemsChanged, this,
            &ClipboardSettings::canClearChanged);
}

qint64 ClipboardSettings::capacity() const
{
    return m_services.settings.clipboardCapacity();
}

void ClipboardSettings::step(int steps)
{
    if (steps > 0 ? !canIncrement() : !canDecrement())
        return;
    const qint64 base =
        std::clamp<qint64>(capacity(), minCapacity - capacityStep, maxCapacity + capacityStep);
    m_services.settings.setClipboardCapacity(
        std::clamp<qint64>(base + qint64(steps) * capacityStep, minCapacity, maxCapacity));
}

bool ClipboardSettings::canClear() const
{
    return m_services.clipboard.unpinnedCount() > 0;
}

void ClipboardSettings::clearUnpinned() const
{
    m_services.clipboard.clearUnpinned();
}

} // namespace driftbox
