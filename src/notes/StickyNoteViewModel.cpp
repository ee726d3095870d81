#include "notes/StickyNoteViewModel.h"

#include "core/PasteboardWriter.h"
#include "notes/NoteContent.h"
#include "notes/NotesStore.h"
#include "platform/Clock.h"
#include "platform/FileSystem.h"
#include "platform/TaskRunner.h"

#include <algorithm>
#include <cmath>
#include <memory>

namespace driftbox {

StickyNoteViewModel::StickyNoteViewModel(const StickyNote& note, const StickyNoteServices& services,
                                         OnChange onChange, QObject* parent)
    : QObject(parent)
    , m_services(services)
    , m_onChange(std::move(onChange))
    , m_note(note)
    , m_text(note.textContent.value_or(QString()))
{
}

void StickyNoteViewModel::setText(const QString& text)
{
    if (m_text == text)
        return;
    m_text = text;
    m_note.textContent = text;
    reportUpdate();
    Q_EMIT textChanged();
}

void StickyNoteViewModel::setColor(NoteColor color)
{
    if (m_note.color == color)
        return;
    m_note.color = color;
    reportUpdate();
    Q_EMIT colorChanged();
}

void StickyNoteViewModel::setZoom(double zoom)
{
    if (m_note.zoom == zoom)
        return;
    m_note.zoom = zoom;
    reportUpdate();
    Q_EMIT zoomChanged();
}

double StickyNoteViewModel::textSize() const
{
    constexpr double minSize = 9;
    const double unzoomed = m_note.kind == StickyNote::Kind::image ? 12 : 14;
    // A foreign manifest may contain any zoom.
    return std::max(unzoomed * std::clamp(zoom(), minNoteZoom, maxNoteZoom), minSize);
}

void StickyNoteViewModel::toggleSaved()
{
    m_note.isSaved = !m_note.isSaved;
    reportUpdate();
    Q_EMIT isSavedChanged();
}

void StickyNoteViewModel::updateFrame(const NoteFrame& frame)
{
    const double sum = frame.x + frame.y + frame.width + frame.height;
    if (!std::isfinite(sum))
        return; // JSON cannot represent it
    m_note.frame = frame;
    report();
}

void StickyNoteViewModel::reportUpdate()
{
    m_note.updatedAt = m_services.clock.now();
    report();
}

void StickyNoteViewModel::report()
{
    m_onChange(m_note);
}

void StickyNoteViewModel::copyToClipboard()
{
    m_services.pasteboard.write(pasteboardContent(m_note, m_services.store, m_services.fileSystem));
}

QImage StickyNoteViewModel::image()
{
    if (m_imageCache.isNull() && !m_isLoadingImage && m_note.kind == StickyNote::Kind::image)
        loadImage();
    return m_imageCache;
}

void StickyNoteViewModel::loadImage()
{
    m_isLoadingImage = true;
    const auto image = std::make_shared<QImage>();
    const auto work = [image, &files = m_services.fileSystem,
                       path = m_services.store.imageURL(m_note)] {
        if (const auto bytes = files.read(path))
            *image = decodedNoteImage(*bytes);
    };
    const auto done = [this, image] {
        m_isLoadingImage = false;
        m_imageCache = *image;
        if (!m_imageCache.isNull())
            Q_EMIT imageChanged();
    };
    m_services.tasks.run(this, work, done);
}

void StickyNoteViewModel::close()
{
    if (m_onClose)
        m_onClose();
}

void StickyNoteViewModel::newNote()
{
    if (m_onNewNote)
        m_onNewNote();
}

} // namespace driftbox
