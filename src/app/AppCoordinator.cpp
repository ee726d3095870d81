#include "app/AppCoordinator.h"

#include "app/Desktop.h"
#include "clipboard/ClipboardMonitor.h"
#include "clipboard/ClipboardViewModel.h"
#include "clipboard/FileClipboardStore.h"
#include "clipboard/ThumbnailCache.h"
#include "clipboard/view/ClipboardSection.h"
#include "core/AppConfig.h"
#include "markdown/MarkdownReaderCoordinator.h"
#include "markdown/view/MarkdownFileChooser.h"
#include "markdown/view/ReaderWindow.h"
#include "markdown/view/WebEngineModule.h"
#include "notes/FileNotesStore.h"
#include "notes/NoteManager.h"
#include "notes/view/NotesSection.h"
#include "notes/view/StickyNotePanel.h"
#include "panel/CursorLocator.h"
#include "panel/HotkeyManager.h"
#include "panel/MagicPanelController.h"
#include "panel/view/FloatingPanel.h"
#include "platform/Clock.h"
#include "platform/DocumentOpener.h"
#include "platform/FileSystem.h"
#include "platform/KeyEventMonitor.h"
#include "platform/LoginItem.h"
#include "settings/view/SettingsWindowController.h"
#include "ui/theme/ThemeFollower.h"

#include <chrono>

#include <QtCore/QLoggingCategory>
#include <QtCore/QPointer>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace driftbox {

namespace {

Q_LOGGING_CATEGORY(appCoordinatorLog, "AppCoordinator")

// Leaves the session time to start up, but ends before the first double tap.
constexpr auto startupIdleDelay = 300ms;

QPointer<AppCoordinator>& sharedCoordinator()
{
    static QPointer<AppCoordinator> coordinator;
    return coordinator;
}

} // namespace

// The widgets of the Markdown reader.
struct AppCoordinator::MarkdownWindows
{
    explicit MarkdownWindows(const Desktop& desktop)
        : windows({desktop.standardWindows, desktop.documentOpener, desktop.pasteboard,
                   desktop.selectedText, desktop.tasks, webEngine,
                   MarkdownResource(AppConfig::resourcesFolder())})
        , openPanel(desktop.standardWindows)
    {
    }

    WebEngineModule webEngine{AppConfig::modulesFolder() + u"/driftbox_webengine.so"_s};
    ReaderWindowFactory windows;
    MarkdownFileChooser openPanel;
};

AppCoordinator::AppCoordinator(const Desktop& desktop, QObject* parent)
    : QObject(parent)
    , m_desktop(desktop)
    , m_settings(desktop.userDefaults)
    , m_theme(std::make_unique<ThemeFollower>(desktop.appearance))
    , m_pasteboardWriter(desktop.pasteboard)
    , m_textExchange(textExchange(desktop.pasteboard, m_pasteboardWriter))
{
}

AppCoordinator::~AppCoordinator() = default;

AppCoordinator* AppCoordinator::shared()
{
    return sharedCoordinator();
}

void AppCoordinator::start()
{
    sharedCoordinator() = this;
    registerClipboardSection();
    registerNotesSection();
    monitor().start();
    noteManager().restore();
    startHotkey();
    applyLaunchAtLogin();
    followSettings();
    buildPanelWhenIdle();
}

void AppCoordinator::registerClipboardSection()
{
    m_registry.registerSection(std::make_unique<ClipboardSection>(
        clipboardVM(), m_desktop.clock, m_textExchange,
        [self = QPointer<AppCoordinator>(this)](const ClipboardItem& item) {
            if (self)
                self->makeNote(item);
        }));
}

void AppCoordinator::registerNotesSection()
{
    m_registry.registerSection(std::make_unique<NotesSection>(noteManager(), m_textExchange));
}

void AppCoordinator::makeNote(const ClipboardItem& item)
{
    if (item.kind == ClipboardItem::Kind::text)
        noteManager().createNote(item.textContent.value_or(QString()));
    else if (const auto bytes = m_desktop.fileSystem.read(store().imageURL(item)))
        noteManager().createNote(*bytes);
}

void AppCoordinator::startHotkey()
{
    hotkeyManager().setOnTrigger([self = QPointer<AppCoordinator>(this)] {
        if (self)
            self->togglePanel();
    });
    hotkeyManager().start();
    HotkeyManager::promptForAccessibilityIfNeeded(m_desktop.keyboard, m_desktop.userDefaults);
}

void AppCoordinator::followSettings()
{
    for (const auto change :
         {&AppSettings::hotkeyEnabledChanged, &AppSettings::hotkeyModifierChanged})
        connect(&m_settings, change, this, [this] { hotkeyManager().restart(); });
    connect(&m_settings, &AppSettings::launchAtLoginChanged, this,
            &AppCoordinator::applyLaunchAtLogin);
}

void AppCoordinator::buildPanelWhenIdle()
{
    m_desktop.clock.after(startupIdleDelay, this, [this] {
        (void)panelController();
        m_panel->prepare();
    });
}

void AppCoordinator::applyLaunchAtLogin()
{
    LoginItem& item = m_desktop.loginItem;
    const auto done = m_settings.launchAtLogin() ? item.registerItem() : item.unregisterItem();
    if (!done)
        qCCritical(appCoordinatorLog).noquote()
            << u"Launch-at-login toggle failed: %1"_s.arg(done.error().message);
}

void AppCoordinator::togglePanel()
{
    MagicPanelController& controller = panelController();
    if (controller.isPanelVisible())
        controller.hide();
    else
        controller.show();
}

void AppCoordinator::showPanel()
{
    if (!panelController().isPanelVisible())
        panelController().show();
}

void AppCoordinator::openMarkdown()
{
    markdownReader().openViaPanel();
}

void AppCoordinator::showSettings()
{
    settingsController().showWindow();
}

void AppCoordinator::sendFeedback()
{
    if (const auto opened = m_desktop.documentOpener.open(AppConfig::feedbackURL()); !opened)
        qCCritical(appCoordinatorLog).noquote()
            << u"The feedback page cannot be opened: %1"_s.arg(opened.error().message);
}

void AppCoordinator::openAccessibilitySettings()
{
    if (const auto opened = m_desktop.documentOpener.openAccessibilitySettings(); !opened)
        qCCritical(appCoordinatorLog).noquote()
            << u"System settings cannot be opened: %1"_s.arg(opened.error().message);
}

ClipboardStore& AppCoordinator::store()
{
    if (!m_store) {
        m_store = std::make_unique<FileClipboardStore>(m_desktop.fileSystem, m_desktop.clock,
                                                       AppConfig::storage::defaultRootURL());
    }
    return *m_store;
}

ClipboardMonitor& AppCoordinator::monitor()
{
    if (!m_monitor) {
        m_monitor = std::make_unique<ClipboardMonitor>(m_desktop.pasteboard, m_desktop.clock);
        connect(&m_pasteboardWriter, &PasteboardWriter::written, m_monitor.get(),
                &ClipboardMonitor::markSeen);
    }
    return *m_monitor;
}

ClipboardViewModel& AppCoordinator::clipboardVM()
{
    if (!m_clipboardVM) {
        m_thumbnails = std::make_unique<ThumbnailCache>(m_desktop.fileSystem, m_desktop.tasks);
        m_clipboardVM = std::make_unique<ClipboardViewModel>(
            ClipboardServices{store(), monitor(), m_settings, m_pasteboardWriter, m_pasteRequest,
                              *m_thumbnails, m_desktop.fileSystem, m_desktop.recognitions,
                              m_desktop.textRecognizer, m_desktop.clock});
    }
    return *m_clipboardVM;
}

NotesStore& AppCoordinator::notesStore()
{
    if (!m_notesStore) {
        m_notesStore = std::make_unique<FileNotesStore>(
            m_desktop.fileSystem, AppConfig::storage::defaultRootURL() + u"/notes"_s);
    }
    return *m_notesStore;
}

NoteManager& AppCoordinator::noteManager()
{
    if (!m_noteManager) {
        m_notePanels = std::make_unique<StickyNotePanelFactory>(
            m_desktop.floatingSurfaces, m_desktop.pasteboard, m_desktop.selectedText);
        m_noteManager = std::make_unique<NoteManager>(NoteManager::Services{
            notesStore(), m_settings, m_desktop.fileSystem, m_desktop.tasks, m_pasteboardWriter,
            m_desktop.clock, m_desktop.screens, m_desktop.localKeys, *m_notePanels});
    }
    return *m_noteManager;
}

HotkeyManager& AppCoordinator::hotkeyManager()
{
    if (!m_hotkeyManager)
        m_hotkeyManager = std::make_unique<HotkeyManager>(m_settings, m_desktop.keyboard);
    return *m_hotkeyManager;
}

MarkdownReaderCoordinator& AppCoordinator::markdownReader()
{
    if (!m_markdownReader) {
        m_markdownWindows = std::make_unique<MarkdownWindows>(m_desktop);
        m_markdownReader =
            std::make_unique<MarkdownReaderCoordinator>(MarkdownReaderCoordinator::Services{
                m_desktop.fileSystem, m_markdownWindows->windows, m_markdownWindows->openPanel});
    }
    return *m_markdownReader;
}

MagicPanelController& AppCoordinator::panelController()
{
    if (m_panelController)
        return *m_panelController;

    m_cursorLocator = std::make_unique<CursorLocator>(m_desktop.caretLookup, m_desktop.screens);
    m_panel =
        std::make_unique<FloatingPanel>(m_desktop.floatingSurfaces, m_panelAnimator, m_registry);
    m_panelController = std::make_unique<MagicPanelController>(
        m_panelAnimator, m_panel->surface(),
        MagicPanelController::Services{m_desktop.workspace, m_desktop.pasteKeystroke,
                                       *m_cursorLocator, m_desktop.screens, m_desktop.localKeys,
                                       m_pasteRequest, m_desktop.clock});
    connect(m_panel.get(), &FloatingPanel::settingsRequested, this, &AppCoordinator::showSettings);
    connect(m_panel.get(), &FloatingPanel::closeRequested, m_panelController.get(),
            &MagicPanelController::hide);
    // Something copied just now must be listed first.
    connect(m_panelController.get(), &MagicPanelController::aboutToShow, &monitor(),
            &ClipboardMonitor::tick);
    return *m_panelController;
}

SettingsWindowController& AppCoordinator::settingsController()
{
    if (!m_settingsController) {
        m_settingsController = std::make_unique<SettingsWindowController>(
            std::make_unique<SettingsWindow>(m_desktop.floatingSurfaces, settingsServices(),
                                             m_textExchange),
            m_desktop.screens);
    }
    return *m_settingsController;
}

SettingsServices AppCoordinator::settingsServices()
{
    return {.settings = m_settings,
            .clipboard = clipboardVM(),
            .isAccessibilityTrusted = [this] { return hotkeyManager().isTrusted(); },
            .requestAccessibilityTrust = [this] { m_desktop.keyboard.requestTrust(); },
            .openAccessibilitySettings = [this] { openAccessibilitySettings(); },
            .closeAllNotes = [this] { noteManager().closeAll(); },
            .sendFeedback = [this] { sendFeedback(); }};
}

} // namespace driftbox
