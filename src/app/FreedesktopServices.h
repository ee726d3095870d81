#pragma once

#include "clipboard/OCREngine.h"
#include "core/JsonUserDefaults.h"
#include "platform/desktop/DesktopDocumentOpener.h"
#include "platform/desktop/PortalAppearance.h"
#include "platform/desktop/PosixFileSystem.h"
#include "platform/desktop/QtLocalKeyMonitor.h"
#include "platform/desktop/StatusNotifierHosts.h"
#include "platform/desktop/SystemClock.h"
#include "platform/desktop/ThreadPoolTaskRunner.h"
#include "platform/desktop/XdgAutostart.h"
#include "platform/desktop/caret/ToolkitAccessibility.h"

#include <QtDBus/QDBusConnection>

namespace driftbox {

/// The services of any freedesktop.org session, independent of the window system. A desktop owns
/// one of these along with the back-ends of its window system, which may use it.
struct FreedesktopServices
{
    FreedesktopServices();
    /// Cancels running text recognition, which may take long, because tasks are waited for.
    ~FreedesktopServices();
    Q_DISABLE_COPY_MOVE(FreedesktopServices)

    QDBusConnection sessionBus;
    PosixFileSystem fileSystem;
    SystemClock clock;
    JsonUserDefaults userDefaults;
    ThreadPoolTaskRunner tasks;
    OCREngine textRecognizer;
    ThreadPoolTaskRunner recognitions;
    PortalAppearance appearance;
    XdgAutostart loginItem;
    QtLocalKeyMonitor localKeys;
    ToolkitAccessibility toolkitAccessibility;
    StatusNotifierHosts statusNotifiers;
    DesktopDocumentOpener documentOpener;
};

} // namespace driftbox
