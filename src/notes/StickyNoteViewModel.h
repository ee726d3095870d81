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

/// The dependencies of an open note, all of which must outlive its view model.
struct StickyNoteServices
{
    const NotesStore& store;
    const FileSystem& fileSystem;
    TaskRunner& tasks;
    PasteboardWriter& pasteboard;
    const Clock& clock;
};

/// An open note as shown by its window. Every change is reported immediately, as the whole note.
/// Main thread only.
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
    /// The font size at the current zoom, in points.
    [[nodiscard]] double textSize() const;

    /// Turns a draft into a saved note and back.
    void toggleSaved();
    /// Reports the window's current frame, in screen space. Does not change `updatedAt`.
    void updateFrame(const NoteFrame& frame);

    /// Puts the note on the pasteboard: its text, or the bytes of its image file. Clears the
    /// pasteboard if the file cannot be read.
    void copyToClipboard();

    /// The image of an image note; null for text, while it is being loaded (`imageChanged` is
    /// emitted once it is available) and if it cannot be loaded. A failed load is retried on the
    /// next call.
    [[nodiscard]] QImage image();

    void setOnClose(Callback onClose) { m_onClose = std::move(onClose); }
    void setOnNewNote(Callback onNewNote) { m_onNewNote = std::move(onNewNote); }
    /// Requests closing this note; the view model may be deleted once control returns to the event
    /// loop.
    void close();
    /// Requests a new, empty note.
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
