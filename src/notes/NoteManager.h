#pragma once

#include "notes/StickyNote.h"
#include "notes/StickyNoteViewModel.h"

#include <memory>
#include <vector>

#include <QtCore/QHash>
#include <QtCore/QObject>

namespace driftbox {

class AppSettings;
class LocalKeyMonitor;
class MonitorToken;
class NotesStore;
class NoteWindowFactory;
class Screens;
class StickyNoteWindowController;
struct KeyPress;

/// Manages all sticky notes: the saved ones, open or closed, and the open drafts. Writes saved
/// notes to the store, owns the windows, and handles the keyboard shortcuts of the active one.
///
/// Closing the window of a saved note keeps the note; closing a draft deletes it. An unknown id
/// leaves the list unchanged. Main thread only.
class NoteManager : public QObject
{
    Q_OBJECT

public:
    /// The manager's dependencies, all of which must outlive it.
    struct Services
    {
        NotesStore& store;
        const AppSettings& settings;
        const FileSystem& fileSystem;
        TaskRunner& tasks;
        PasteboardWriter& pasteboard;
        const Clock& clock;
        const Screens& screens;
        LocalKeyMonitor& localKeys;
        NoteWindowFactory& windows;
    };

    explicit NoteManager(const Services& services, QObject* parent = nullptr);
    /// Drafts do not outlive it, nor do their pictures.
    ~NoteManager() override;

    /// All notes, newest first.
    [[nodiscard]] const std::vector<StickyNote>& notes() const { return m_notes; }
    /// Whether the note has a window.
    [[nodiscard]] bool isOpen(StickyNoteId id) const { return m_windows.contains(id); }

    /// Enables the keyboard shortcuts of note windows. Called once at launch; saved notes stay
    /// closed.
    void restore();

    /// Creates a draft in the default color and opens it. `imageData` is stored unchanged, even if
    /// it is not an image.
    void newBlankNote();
    void createNote(const QString& text);
    void createNote(const QByteArray& imageData);

    /// Brings the note's window to the front, opening it if it is closed.
    void focus(StickyNoteId id);
    void close(StickyNoteId id);
    /// Closes the note's window and deletes the note.
    void remove(StickyNoteId id);
    /// Closes all notes; saved ones stay in the list.
    void closeAll();
    /// Puts the note's text, or the bytes of its image, on the pasteboard.
    void copyToClipboard(StickyNoteId id);

Q_SIGNALS:
    void notesChanged();
    void windowsChanged();

private:
    using Notes = std::vector<StickyNote>;

    [[nodiscard]] Notes::iterator find(StickyNoteId id);
    [[nodiscard]] StickyNote draft();
    [[nodiscard]] NoteFrame nextCascadeFrame(const std::optional<QByteArray>& imageData);
    void add(const StickyNote& note);
    void upsert(const StickyNote& note);
    void openWindow(const StickyNote& note);
    void closeWindow(StickyNoteId id);
    void erase(StickyNoteId id);

    void installZoomMonitor();
    [[nodiscard]] bool handleKeyPress(const KeyPress& press);
    [[nodiscard]] StickyNoteWindowController* keyWindow() const;
    [[nodiscard]] bool zoomActive(double factor);
    [[nodiscard]] bool closeActive();
    [[nodiscard]] bool createNoteFromActive();

    Services m_services;
    QHash<StickyNoteId, StickyNoteWindowController*> m_windows; ///< children of this
    qint64 m_cascadeCount = 0;                                  ///< frames assigned since launch
    std::unique_ptr<MonitorToken> m_zoomMonitor;
    Notes m_notes;
};

} // namespace driftbox
