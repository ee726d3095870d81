#include "notes/NoteManager.h"

#include "core/AppSettings.h"
#include "core/PasteboardWriter.h"
#include "notes/NoteContent.h"
#include "notes/NotePlacement.h"
#include "notes/NotesStore.h"
#include "notes/StickyNoteWindowController.h"
#include "platform/Clock.h"
#include "platform/LocalKeyMonitor.h"
#include "platform/Screens.h"

#include <algorithm>

#include <QtCore/QLoggingCategory>
#include <QtCore/QPointer>

using namespace Qt::StringLiterals;

namespace driftbox {

namespace {

Q_LOGGING_CATEGORY(noteManagerLog, "NoteManager")

constexpr double zoomStep = 1.1;

} // namespace

NoteManager::NoteManager(const Services& services, QObject* parent)
    : QObject(parent)
    , m_services(services)
    , m_notes(services.store.notes())
{
}

NoteManager::~NoteManager()
{
    for (const StickyNote& note : m_notes) {
        if (!note.isSaved)
            m_services.store.remove(note.id);
    }
}

void NoteManager::restore()
{
    if (!m_notes.empty()) {
        qCInfo(noteManagerLog).noquote()
            << u"Loaded %1 saved note(s); windows left closed"_s.arg(m_notes.size());
    }
    installZoomMonitor();
}

NoteManager::Notes::iterator NoteManager::find(StickyNoteId id)
{
    return std::ranges::find(m_notes, id, &StickyNote::id);
}

// Creating notes

StickyNote NoteManager::draft()
{
    const Instant now = m_services.clock.now();
    return {.color = m_services.settings.noteDefaultColor(), .createdAt = now, .updatedAt = now};
}

NoteFrame NoteManager::nextCascadeFrame(const std::optional<QByteArray>& imageData)
{
    const auto imageSize = imageData ? noteImageSize(*imageData) : std::nullopt;
    return NotePlacement::cascadeFrame(m_cascadeCount++, imageSize, m_services.screens.screens());
}

void NoteManager::newBlankNote()
{
    createNote(QString());
}

void NoteManager::createNote(const QString& text)
{
    StickyNote note = draft();
    note.textContent = text;
    note.frame = nextCascadeFrame(std::nullopt);
    add(note);
}

void NoteManager::createNote(const QByteArray& imageData)
{
    StickyNote note = draft();
    note.kind = StickyNote::Kind::image;
    note.imageFileName = ownImageFile(note.id);
    note.frame = nextCascadeFrame(imageData);
    m_services.store.saveImage(imageData, note);
    add(note);
}

void NoteManager::add(const StickyNote& note)
{
    m_notes.insert(m_notes.begin(), note);
    Q_EMIT notesChanged();
    openWindow(note);
}

// Changes

void NoteManager::upsert(const StickyNote& note)
{
    const auto known = find(note.id);
    if (known == m_notes.end())
        return;
    const bool wasSaved = known->isSaved;
    *known = note;
    if (note.isSaved)
        m_services.store.save(note);
    else if (wasSaved)
        m_services.store.unsave(note.id);
    Q_EMIT notesChanged();
}

// Windows

void NoteManager::openWindow(const StickyNote& note)
{
    const QPointer<NoteManager> self(this);
    auto viewModel = std::make_unique<StickyNoteViewModel>(
        note,
        StickyNoteServices{m_services.store, m_services.fileSystem, m_services.tasks,
                           m_services.pasteboard, m_services.clock},
        [self](const StickyNote& changed) {
            if (self)
                self->upsert(changed);
        });
    viewModel->setOnClose([self, id = note.id] {
        if (self)
            self->close(id);
    });
    viewModel->setOnNewNote([self] {
        if (self)
            self->newBlankNote();
    });

    closeWindow(note.id);
    auto* const controller = new StickyNoteWindowController(
        std::move(viewModel), m_services.windows,
        NotePlacement::windowRect(note.frame, m_services.screens.screens()), this);
    m_windows.insert(note.id, controller);
    controller->showWindow();
    Q_EMIT windowsChanged();
}

void NoteManager::closeWindow(StickyNoteId id)
{
    StickyNoteWindowController* const controller = m_windows.take(id);
    if (!controller)
        return;
    controller->orderOut();
    controller->deleteLater(); // the call may come from one of its own controls
    Q_EMIT windowsChanged();
}

void NoteManager::focus(StickyNoteId id)
{
    if (StickyNoteWindowController* const controller = m_windows.value(id)) {
        controller->showWindow();
        return;
    }
    const auto known = find(id);
    if (known == m_notes.end())
        return;
    StickyNote note = *known;
    if (!NotePlacement::isVisible(note.frame, m_services.screens.screens()))
        note.frame = nextCascadeFrame(std::nullopt);
    openWindow(note);
}

void NoteManager::close(StickyNoteId id)
{
    const auto note = find(id);
    const bool isKept = note != m_notes.end() && note->isSaved;
    closeWindow(id);
    if (!isKept)
        erase(id);
}

void NoteManager::remove(StickyNoteId id)
{
    closeWindow(id);
    erase(id);
}

void NoteManager::erase(StickyNoteId id)
{
    const auto removed =
        std::erase_if(m_notes, [id](const StickyNote& note) { return note.id == id; });
    m_services.store.remove(id);
    if (removed > 0)
        Q_EMIT notesChanged();
}

void NoteManager::closeAll()
{
    std::vector<StickyNoteId> ids;
    std::ranges::transform(m_notes, std::back_inserter(ids), &StickyNote::id);
    for (const StickyNoteId id : ids)
        close(id);
}

void NoteManager::copyToClipboard(StickyNoteId id)
{
    const auto note = find(id);
    if (note == m_notes.end())
        return;
    m_services.pasteboard.write(pasteboardContent(*note, m_services.store, m_services.fileSystem));
}

// Keys

void NoteManager::installZoomMonitor()
{
    if (m_zoomMonitor)
        return;
    m_zoomMonitor = m_services.localKeys.addMonitor(
        [this](const KeyPress& press) { return handleKeyPress(press); });
}

bool NoteManager::handleKeyPress(const KeyPress& press)
{
    if (!(press.modifiers & (Qt::ControlModifier | Qt::MetaModifier)))
        return false;
    // Auto-repeat must not close or create one note after another.
    const bool ignoresRepeat = press.key == Qt::Key_W || press.key == Qt::Key_N;
    if (ignoresRepeat && press.isRepeated)
        return keyWindow() != nullptr;
    switch (press.key) {
    case Qt::Key_W:
        return closeActive();
    case Qt::Key_Equal:
    case Qt::Key_Plus:
        return zoomActive(zoomStep);
    case Qt::Key_Minus:
    case Qt::Key_Underscore: // the same key with Shift
        return zoomActive(1 / zoomStep);
    case Qt::Key_N:
        return createNoteFromActive();
    default:
        return false;
    }
}

StickyNoteWindowController* NoteManager::keyWindow() const
{
    const auto key = std::ranges::find_if(m_windows, &StickyNoteWindowController::isKey);
    return key == m_windows.end() ? nullptr : *key;
}

bool NoteManager::zoomActive(double factor)
{
    StickyNoteWindowController* const active = keyWindow();
    if (active)
        active->zoom(factor);
    return active != nullptr;
}

bool NoteManager::closeActive()
{
    StickyNoteWindowController* const active = keyWindow();
    if (active)
        close(active->noteID());
    return active != nullptr;
}

bool NoteManager::createNoteFromActive()
{
    const bool isActive = keyWindow() != nullptr;
    if (isActive)
        newBlankNote();
    return isActive;
}

} // namespace driftbox
