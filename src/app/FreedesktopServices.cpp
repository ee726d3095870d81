#include "app/FreedesktopServices.h"

#include "core/AppConfig.h"

namespace driftbox {

FreedesktopServices::FreedesktopServices()
    : sessionBus(QDBusConnection::sessionBus())
    , userDefaults(fileSystem, AppConfig::settingsFolder())
    , appearance(sessionBus)
    , loginItem(fileSystem, AppConfig::autostartFolder())
    , toolkitAccessibility(sessionBus)
    , statusNotifiers(sessionBus)
    , documentOpener(sessionBus)
{
}

FreedesktopServices::~FreedesktopServices()
{
    textRecognizer.stop();
}

} // namespace driftbox
