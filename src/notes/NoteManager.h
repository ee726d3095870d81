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

/// The life of every sticky note: the saved ones, open or closed, and the open drafts; what of them
/// reaches the store; their windows and the keys that act on the one that has the keyboard.
///
/// Closing the window of a saved note keeps the note; closing a draft deletes it. Operations on an
/// unknown id change nothing in the list. Main thread only.
class NoteManager : public QObject
{
    Q_OBJECT

public:
    /// What the manager works with; everything must outlive it.
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

    /// Every known note, the newest in front.
    [[nodiscard]] const std::vector<StickyNote>& notes() const { return m_notes; }
    /// Whether the note has a window.
    [[nodiscard]] bool isOpen(StickyNoteId id) const { return m_windows.contains(id); }

    /// Called once at launch. Saved notes stay closed; from now on the keys of note windows work.
    void restore();

    /// Each makes a draft of the default color and opens it. `imageData` is stored as it is, even
    /// if it is no image.
    void newBlankNote();
    void createNote(const QString& text);
    void createNote(const QByteArray& imageData);

    /// Brings the note's window to the front, opening it when it is closed.
    void focus(StickyNoteId id);
    void close(StickyNoteId id);
    /// Named `delete` in the interface's vocabulary, which the language reserves.
    void remove(StickyNoteId id);
    /// Closes every note; saved ones stay in the list.
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
    void forget(StickyNoteId id);

    void installZoomMonitor();
    [[nodiscard]] bool handleKeyPress(const KeyPress& press);
    [[nodiscard]] StickyNoteWindowController* keyWindow() const;
    [[nodiscard]] bool zoomActive(double factor);
    [[nodiscard]] bool closeActive();
    [[nodiscard]] bool makeNoteBesideActive();

    Services m_services;
    QHash<StickyNoteId, StickyNoteWindowController*> m_windows; ///< children of this
    qint64 m_cascadeCount = 0;                                  ///< frames handed out since launch
    std::unique_ptr<MonitorToken> m_zoomMonitor;
    Notes m_notes;
};

} // namespace driftbox
