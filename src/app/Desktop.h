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

/// Everything that the program asks of the desktop it runs on. Borrowed: the back-end owns it all.
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
    TaskRunner& recognitions;    ///< apart from `tasks`: they may take many seconds
    StatusArea& statusNotifiers; ///< shows the item and draws its menu
    StatusArea& systemTray;      ///< holds a window of the program
    StandardWindows& standardWindows;
    DocumentOpener& documentOpener;
};

} // namespace driftbox
