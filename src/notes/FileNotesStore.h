#pragma once

#include "core/ManifestFile.h"
#include "notes/NotesStore.h"

namespace driftbox {

class FileSystem;

/// The saved notes in memory, mirrored to "manifest.json" in the root folder after every change,
/// with the bytes of image notes in its folder "images". A manifest that cannot be decoded is
/// logged and the notes start empty.
class FileNotesStore final : public NotesStore
{
public:
    /// `fileSystem` must outlive the store.
    FileNotesStore(FileSystem& fileSystem, const QString& rootURL);

    [[nodiscard]] const std::vector<StickyNote>& notes() const override { return m_notes; }
    void save(const StickyNote& note) override;
    void saveImage(const QByteArray& data, const StickyNote& note) override;
    void unsave(const StickyNoteId& id) override;
    void remove(const StickyNoteId& id) override;
    [[nodiscard]] QString imageURL(const StickyNote& note) const override;

private:
    void bootstrap();
    /// Returns whether there was a note to forget.
    bool forget(const StickyNoteId& id);
    void persist();
    void encodeMissing();

    FileSystem& m_fileSystem;
    QString m_rootURL;
    QString m_imagesURL;
    ManifestFile m_manifest;
    std::vector<StickyNote> m_notes;
    /// Each note's element of the manifest, in the same order; empty until it is needed. A key
    /// press changes one note, and so costs the encoding of one.
    std::vector<QByteArray> m_encoded;
};

} // namespace driftbox
