#pragma once

#include "core/ManifestFile.h"
#include "notes/NotesStore.h"

namespace driftbox {

class FileSystem;

/// Keeps the saved notes in memory and writes them to "manifest.json" in the root folder after
/// every change; image files are in the subfolder "images". If the manifest cannot be decoded, this
/// is logged and the store starts empty.
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
    /// Removes the note from memory. Returns whether there was one.
    bool erase(const StickyNoteId& id);
    void persist();
    void encodeMissing();

    FileSystem& m_fileSystem;
    QString m_rootURL;
    QString m_imagesURL;
    ManifestFile m_manifest;
    std::vector<StickyNote> m_notes;
    /// The cached manifest element of each note, in the same order; empty if it must be encoded
    /// again. A key press changes, and reencodes, only one note.
    std::vector<QByteArray> m_encoded;
};

} // namespace driftbox
