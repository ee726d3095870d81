#include "app/X11Desktop.h"

#include "clipboard/OCREngine.h"
#include "core/AppConfig.h"
#include "core/JsonUserDefaults.h"
#include "platform/desktop/DesktopDocumentOpener.h"
#include "platform/desktop/DesktopPageOpener.h"
#include "platform/desktop/PortalAppearance.h"
#include "platform/desktop/PosixFileSystem.h"
#include "platform/desktop/QtLocalKeyMonitor.h"
#include "platform/desktop/StatusNotifierHosts.h"
#include "platform/desktop/SystemClock.h"
#include "platform/desktop/ThreadPoolTaskRunner.h"
#include "platform/desktop/XdgAutostart.h"
#include "platform/desktop/caret/AtSpiCaretLookup.h"
#include "platform/desktop/caret/ToolkitAccessibility.h"
#include "platform/x11/connection/X11Connection.h"
#include "platform/x11/keys/X11KeyEventMonitor.h"
#include "platform/x11/keys/X11Keyboard.h"
#include "platform/x11/keys/X11PasteKeystroke.h"
#include "platform/x11/selection/X11Pasteboard.h"
#include "platform/x11/selection/X11PrimarySelection.h"
#include "platform/x11/selection/X11SelectedText.h"
#include "platform/x11/windows/X11ActiveWindow.h"
#include "platform/x11/windows/X11FloatingSurfaceFactory.h"
#include "platform/x11/windows/X11Screens.h"
#include "platform/x11/windows/X11StandardWindows.h"
#include "platform/x11/windows/X11SystemTray.h"
#include "platform/x11/windows/X11Workspace.h"

#include <QtCore/QLoggingCategory>
#include <QtDBus/QDBusConnection>

using namespace Qt::StringLiterals;

namespace driftbox {

namespace {

Q_LOGGING_CATEGORY(x11DesktopLog, "X11Desktop")

} // namespace

struct X11Desktop::BackEnds
{
    explicit BackEnds(std::unique_ptr<X11Connection> x11)
        : connection(std::move(x11))
    {
    }

    std::unique_ptr<X11Connection> connection;
    PosixFileSystem fileSystem;
    SystemClock clock;
    JsonUserDefaults userDefaults{fileSystem, AppConfig::settingsFolder()};
    ThreadPoolTaskRunner tasks;
    OCREngine textRecognizer;
    ThreadPoolTaskRunner recognitions;
    PortalAppearance appearance{QDBusConnection::sessionBus()};
    XdgAutostart loginItem{fileSystem, AppConfig::autostartFolder()};
    QtLocalKeyMonitor localKeys;
    X11Screens screens{*connection};
    ToolkitAccessibility toolkitAccessibility{QDBusConnection::sessionBus()};
    X11ActiveWindow activeWindow{*connection};
    AtSpiCaretLookup caretLookup{QDBusConnection::sessionBus(), tasks, activeWindow, screens};
    X11Pasteboard pasteboard{*connection, clock, tasks};
    X11SelectedText selectedText{*connection, clock, tasks};
    X11PrimarySelection primarySelection{*connection, clock, pasteboard};
    X11Keyboard keyboard{*connection};
    X11KeyEventMonitor keyEvents{*connection, keyboard};
    X11Workspace workspace{*connection};
    X11PasteKeystroke pasteKeystroke{*connection, keyboard, primarySelection};
    X11FloatingSurfaceFactory floatingSurfaces{*connection};
    DesktopPageOpener pages;
    StatusNotifierHosts statusNotifiers{QDBusConnection::sessionBus()};
    X11SystemTray systemTray{*connection};
    X11StandardWindows standardWindows{*connection};
    DesktopDocumentOpener documentOpener{QDBusConnection::sessionBus()};
};

std::unique_ptr<X11Desktop> X11Desktop::open()
{
    auto connection = X11Connection::open();
    if (!connection) {
        qCCritical(x11DesktopLog).noquote() << u"The X server cannot be reached"_s;
        return nullptr;
    }
    return std::unique_ptr<X11Desktop>(
        new X11Desktop(std::make_unique<BackEnds>(std::move(connection))));
}

X11Desktop::X11Desktop(std::unique_ptr<BackEnds> backEnds)
    : m_backEnds(std::move(backEnds))
{
}

X11Desktop::~X11Desktop()
{
    // Reading a picture may take long, and the tasks are waited for.
    m_backEnds->textRecognizer.stop();
    m_backEnds->pasteboard.handOver();
}

Desktop X11Desktop::services()
{
    BackEnds& own = *m_backEnds;
    return {.fileSystem = own.fileSystem,
            .clock = own.clock,
            .userDefaults = own.userDefaults,
            .tasks = own.tasks,
            .appearance = own.appearance,
            .loginItem = own.loginItem,
            .localKeys = own.localKeys,
            .screens = own.screens,
            .caretLookup = own.caretLookup,
            .pasteboard = own.pasteboard,
            .selectedText = own.selectedText,
            .keyboard = own.keyEvents,
            .workspace = own.workspace,
            .pasteKeystroke = own.pasteKeystroke,
            .floatingSurfaces = own.floatingSurfaces,
            .textRecognizer = own.textRecognizer,
            .recognitions = own.recognitions,
            .pages = own.pages,
            .statusNotifiers = own.statusNotifiers,
            .systemTray = own.systemTray,
            .standardWindows = own.standardWindows,
            .documentOpener = own.documentOpener};
}

} // namespace driftbox
