#include "notes/FileNotesStore.h"

#include "core/JsonRecords.h"
#include "notes/NotesManifest.h"
#include "platform/FileSystem.h"

#include <algorithm>

#include <QtCore/QLoggingCategory>

using namespace Qt::StringLiterals;

namespace driftbox {

namespace {

Q_LOGGING_CATEGORY(fileNotesStoreLog, "FileNotesStore")

} // namespace

FileNotesStore::FileNotesStore(FileSystem& fileSystem, const QString& rootURL)
    : m_fileSystem(fileSystem)
    , m_rootURL(rootURL)
    , m_imagesURL(rootURL + u"/images"_s)
    , m_manifest(fileSystem, rootURL + u"/manifest.json"_s)
{
    bootstrap();
}

void FileNotesStore::bootstrap()
{
    m_fileSystem.createFolder(m_rootURL);
    m_fileSystem.createFolder(m_imagesURL);

    const auto text = m_manifest.read();
    if (!text)
        return;
    auto notes = NotesManifest::decode(*text);
    if (!notes) {
        qCCritical(fileNotesStoreLog).noquote()
            << u"Notes manifest corrupt, starting empty: %1"_s.arg(notes.error().message);
        m_manifest.markCorrupt(*text);
        return;
    }
    m_notes = std::move(*notes);
    m_encoded.resize(m_notes.size());
}

void FileNotesStore::save(const StickyNote& note)
{
    const auto known = std::ranges::find(m_notes, note.id, &StickyNote::id);
    if (known != m_notes.end()) {
        *known = note;
        m_encoded[static_cast<size_t>(known - m_notes.begin())].clear();
    } else {
        m_notes.insert(m_notes.begin(), note);
        m_encoded.insert(m_encoded.begin(), QByteArray());
    }
    persist();
}

void FileNotesStore::saveImage(const QByteArray& data, const StickyNote& note)
{
    if (note.kind != StickyNote::Kind::image)
        return;
    if (const auto written = m_fileSystem.writeAtomically(imageURL(note), data); !written)
        qCCritical(fileNotesStoreLog).noquote()
            << u"Failed to write note image: %1"_s.arg(written.error().message);
}

void FileNotesStore::unsave(const StickyNoteId& id)
{
    if (erase(id))
        persist();
}

void FileNotesStore::remove(const StickyNoteId& id)
{
    if (erase(id))
        persist();
    m_fileSystem.remove(m_imagesURL + u'/' + ownImageFile(id));
}

bool FileNotesStore::erase(const StickyNoteId& id)
{
    const auto note = std::ranges::find(m_notes, id, &StickyNote::id);
    if (note == m_notes.end())
        return false;
    m_encoded.erase(m_encoded.begin() + (note - m_notes.begin()));
    m_notes.erase(note);
    return true;
}

void FileNotesStore::persist()
{
    encodeMissing();
    if (const auto written = m_manifest.write(JsonRecords::join(m_encoded)); !written)
        qCCritical(fileNotesStoreLog).noquote()
            << u"Failed to persist notes manifest: %1"_s.arg(written.error().message);
}

void FileNotesStore::encodeMissing()
{
    for (size_t index = 0; index < m_notes.size(); ++index) {
        if (m_encoded[index].isEmpty())
            m_encoded[index] = NotesManifest::encode(m_notes[index]);
    }
}

QString FileNotesStore::imageURL(const StickyNote& note) const
{
    return m_imagesURL + u'/' + note.imageFile();
}

} // namespace driftbox
