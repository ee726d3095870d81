#include "app/X11Desktop.h"

#include "app/FreedesktopServices.h"
#include "app/SessionClipboard.h"
#include "platform/desktop/caret/AtSpiCaretLookup.h"
#include "platform/x11/connection/X11Connection.h"
#include "platform/x11/keys/X11KeyEventMonitor.h"
#include "platform/x11/keys/X11Keyboard.h"
#include "platform/x11/keys/X11PasteKeystroke.h"
#include "platform/x11/selection/X11PrimarySelection.h"
#include "platform/x11/windows/X11ActiveWindow.h"
#include "platform/x11/windows/X11FloatingSurfaceFactory.h"
#include "platform/x11/windows/X11Screens.h"
#include "platform/x11/windows/X11StandardWindows.h"
#include "platform/x11/windows/X11SystemTray.h"
#include "platform/x11/windows/X11Workspace.h"

#include <QtCore/QLoggingCategory>

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
    FreedesktopServices session;
    X11Screens screens{*connection};
    X11ActiveWindow activeWindow{*connection};
    AtSpiCaretLookup caretLookup{session.sessionBus, session.tasks, activeWindow, screens};
    SessionClipboard clipboard{*connection, session.clock, session.tasks};
    X11PrimarySelection primarySelection{*connection, session.clock, clipboard.pasteboard()};
    X11Keyboard keyboard{*connection};
    X11KeyEventMonitor keyEvents{*connection, keyboard};
    X11Workspace workspace{*connection};
    X11PasteKeystroke pasteKeystroke{*connection, keyboard, primarySelection};
    X11FloatingSurfaceFactory floatingSurfaces{*connection};
    X11SystemTray systemTray{*connection};
    X11StandardWindows standardWindows{*connection};
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
    m_backEnds->clipboard.handOver();
}

Desktop X11Desktop::services()
{
    BackEnds& own = *m_backEnds;
    return {.fileSystem = own.session.fileSystem,
            .clock = own.session.clock,
            .userDefaults = own.session.userDefaults,
            .tasks = own.session.tasks,
            .appearance = own.session.appearance,
            .loginItem = own.session.loginItem,
            .localKeys = own.session.localKeys,
            .screens = own.screens,
            .caretLookup = own.caretLookup,
            .pasteboard = own.clipboard.pasteboard(),
            .selectedText = own.clipboard.selectedText(),
            .keyboard = own.keyEvents,
            .workspace = own.workspace,
            .pasteKeystroke = own.pasteKeystroke,
            .floatingSurfaces = own.floatingSurfaces,
            .textRecognizer = own.session.textRecognizer,
            .recognitions = own.session.recognitions,
            .statusNotifiers = own.session.statusNotifiers,
            .systemTray = own.systemTray,
            .standardWindows = own.standardWindows,
            .documentOpener = own.session.documentOpener};
}

} // namespace driftbox
