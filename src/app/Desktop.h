#pragma once

namespace driftbox {

class Appearance;
class CaretLookup;
class Clock;
class DocumentOpener;
class FileSystem;
class FloatingSurfaceFactory;
class KeyEventMonitor;
class LocalKeyMonitor;
class LoginItem;
class PasteKeystroke;
class Pasteboard;
class Screens;
class SelectedText;
class StatusArea;
class StandardWindows;
class TaskRunner;
class TextRecognizer;
class UserDefaults;
class Workspace;

/// All services of the desktop that the program runs on. Not owned: the back-end owns them.
struct Desktop
{
    FileSystem& fileSystem;
    Clock& clock;
    UserDefaults& userDefaults;
    TaskRunner& tasks;
    Appearance& appearance;
    LoginItem& loginItem;
    LocalKeyMonitor& localKeys;
    Screens& screens;
    CaretLookup& caretLookup;
    Pasteboard& pasteboard;
    SelectedText& selectedText;
    KeyEventMonitor& keyboard;
    Workspace& workspace;
    PasteKeystroke& pasteKeystroke;
    FloatingSurfaceFactory& floatingSurfaces;
    TextRecognizer& textRecognizer;
    TaskRunner& recognitions;    ///< separate from `tasks`: they may take many seconds
    StatusArea& statusNotifiers; ///< the desktop draws the item and its menu
    StatusArea& systemTray;      ///< the desktop embeds a window of the program
    StandardWindows& standardWindows;
    DocumentOpener& documentOpener;
};

} // namespace driftbox
