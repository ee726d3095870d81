#pragma once

#include "notes/StickyNote.h"

#include <functional>

#include <QtCore/QObject>
#include <QtGui/QImage>

namespace driftbox {

class Clock;
class FileSystem;
class NotesStore;
class PasteboardWriter;
class TaskRunner;

/// What an open note stands on; all of it outlives the note.
struct StickyNoteServices
{
    const NotesStore& store;
    const FileSystem& fileSystem;
    TaskRunner& tasks;
    PasteboardWriter& pasteboard;
    const Clock& clock;
};

/// One open note as its window sees it. Every change is reported at once, as the whole note. Main
/// thread only.
class StickyNoteViewModel : public QObject
{
    Q_OBJECT

public:
    using OnChange = std::function<void(const StickyNote&)>;
    using Callback = std::function<void()>;

    StickyNoteViewModel(const StickyNote& note, const StickyNoteServices& services,
                        OnChange onChange, QObject* parent = nullptr);

    [[nodiscard]] const StickyNote& note() const { return m_note; }
    [[nodiscard]] bool isSaved() const { return m_note.isSaved; }

    [[nodiscard]] const QString& text() const { return m_text; }
    void setText(const QString& text);
    [[nodiscard]] NoteColor color() const { return m_note.color; }
    void setColor(NoteColor color);
    [[nodiscard]] double zoom() const { return m_note.zoom; }
    void setZoom(double zoom);
    /// The size of the text at this zoom, in points.
    [[nodiscard]] double textSize() const;

    /// Turns a draft into a saved note and back.
    void toggleSaved();
    /// Where the window is now, in screen space. Not an update of the note's content.
    void updateFrame(const NoteFrame& frame);

    /// Puts the note on the pasteboard: its text, or the bytes of its image. Leaves the pasteboard
    /// empty when those cannot be read.
    void copyToClipboard();

    /// The image of an image note; null while it is being loaded, when it cannot be, and for text.
    /// `imageChanged` tells when it has come. Each call that finds none tries again.
    [[nodiscard]] QImage image();

    void setOnClose(Callback onClose) { m_onClose = std::move(onClose); }
    void setOnNewNote(Callback onNewNote) { m_onNewNote = std::move(onNewNote); }
    /// Closes this note; it may be gone when the event loop runs next.
    void close();
    /// Makes another, empty note.
    void newNote();

Q_SIGNALS:
    void textChanged();
    void colorChanged();
    void zoomChanged();
    void isSavedChanged();
    void imageChanged();

private:
    void report();
    void reportUpdate();
    void loadImage();

    StickyNoteServices m_services;
    OnChange m_onChange;
    StickyNote m_note;
    Callback m_onClose;
    Callback m_onNewNote;
    QString m_text;
    QImage m_imageCache;
    bool m_isLoadingImage = false;
};

} // namespace driftbox
