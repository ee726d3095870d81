#pragma once

#include "app/Desktop.h"
#include "core/AppSettings.h"
#include "core/PasteRequest.h"
#include "core/PasteboardWriter.h"
#include "panel/PanelAnimator.h"
#include "panel/SectionRegistry.h"
#include "settings/SettingsServices.h"
#include "ui/controls/TextExchange.h"

#include <memory>

#include <QtCore/QObject>

namespace driftbox {

class ClipboardMonitor;
class ClipboardStore;
class ClipboardViewModel;
class CursorLocator;
class FloatingPanel;
class HotkeyManager;
class MagicPanelController;
class NoteManager;
class NotesStore;
class StickyNotePanelFactory;
class SettingsWindowController;
class MarkdownReaderCoordinator;
class ThemeFollower;
class ThumbnailCache;
struct ClipboardItem;

/// Builds every long-lived service once and wires them together. Services that are built lazily are
/// created on first access and live as long as the coordinator. Main thread only.
class AppCoordinator : public QObject
{
    Q_OBJECT

public:
    /// The services in `desktop` must outlive the coordinator.
    explicit AppCoordinator(const Desktop& desktop, QObject* parent = nullptr);
    ~AppCoordinator() override;

    /// The running coordinator; null before `start`. For views, the menu and the settings pages.
    [[nodiscard]] static AppCoordinator* shared();

    /// Builds and wires the services. To be called once, at launch.
    void start();

    /// Applies the launch-at-login setting to the session. A failure is logged and leaves the
    /// setting unchanged.
    void applyLaunchAtLogin();

    /// Shows the panel, or hides it when it is visible.
    void togglePanel();
    /// Shows the panel unless it is already visible.
    void showPanel();
    /// Lets the user choose a Markdown file to open.
    void openMarkdown();
    /// Shows and raises the settings window.
    void showSettings();
    /// Opens the product's feedback page in the browser.
    void sendFeedback();

    [[nodiscard]] AppSettings& settings() { return m_settings; }
    [[nodiscard]] SectionRegistry& registry() { return m_registry; }
    [[nodiscard]] PanelAnimator& panelAnimator() { return m_panelAnimator; }
    [[nodiscard]] ClipboardStore& store();
    [[nodiscard]] ClipboardMonitor& monitor();
    [[nodiscard]] ClipboardViewModel& clipboardVM();
    [[nodiscard]] NotesStore& notesStore();
    [[nodiscard]] NoteManager& noteManager();
    [[nodiscard]] MagicPanelController& panelController();
    [[nodiscard]] HotkeyManager& hotkeyManager();
    [[nodiscard]] SettingsWindowController& settingsController();
    [[nodiscard]] MarkdownReaderCoordinator& markdownReader();

private:
    struct MarkdownWindows;

    void registerClipboardSection();
    void registerNotesSection();
    void makeNote(const ClipboardItem& item);
    void startHotkey();
    void followSettings();
    void buildPanelWhenIdle();
    void openAccessibilitySettings();
    [[nodiscard]] SettingsServices settingsServices();

    Desktop m_desktop;
    AppSettings m_settings;
    std::unique_ptr<ThemeFollower> m_theme;
    PasteRequest m_pasteRequest;
    PasteboardWriter m_pasteboardWriter;
    TextExchange m_textExchange; ///< for the text fields
    SectionRegistry m_registry;
    PanelAnimator m_panelAnimator;
    std::unique_ptr<ClipboardStore> m_store;
    std::unique_ptr<ClipboardMonitor> m_monitor;
    std::unique_ptr<ThumbnailCache> m_thumbnails;
    std::unique_ptr<ClipboardViewModel> m_clipboardVM;
    std::unique_ptr<NotesStore> m_notesStore;
    std::unique_ptr<StickyNotePanelFactory> m_notePanels;
    std::unique_ptr<NoteManager> m_noteManager;
    std::unique_ptr<CursorLocator> m_cursorLocator;
    std::unique_ptr<FloatingPanel> m_panel;
    std::unique_ptr<MagicPanelController> m_panelController;
    std::unique_ptr<HotkeyManager> m_hotkeyManager;
    std::unique_ptr<SettingsWindowController> m_settingsController;
    std::unique_ptr<MarkdownWindows> m_markdownWindows;
    std::unique_ptr<MarkdownReaderCoordinator> m_markdownReader;
};

} // namespace driftbox
