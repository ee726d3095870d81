#pragma once

#include <QtCore/QObject>
#include <QtCore/QString>
#include <QtCore/QUrl>

namespace driftbox {

class FileSystem;

/// A Markdown file that is open in a window: its text, whether it has unsaved changes, and whether
/// its source or the rendered preview is shown. Errors are logged and not shown to the user.
///
/// Main thread only; reading and writing block on the file.
class MarkdownReaderViewModel : public QObject
{
    Q_OBJECT

public:
    /// `url` is a local file, which is not read yet. `fileSystem` must outlive this.
    MarkdownReaderViewModel(const QUrl& url, FileSystem& fileSystem, QObject* parent = nullptr);

    [[nodiscard]] const QUrl& fileURL() const { return m_fileURL; }
    /// The last path component of the file.
    [[nodiscard]] const QString& displayName() const { return m_displayName; }

    [[nodiscard]] const QString& markdown() const { return m_markdown; }
    /// Marks the document as changed, even when the text is the same, unless it is being loaded.
    void setMarkdown(const QString& markdown);

    [[nodiscard]] bool hasUnsavedChanges() const { return m_hasUnsavedChanges; }
    void setHasUnsavedChanges(bool hasUnsavedChanges);

    [[nodiscard]] bool isEditing() const { return m_isEditing; }
    void setIsEditing(bool isEditing);

    [[nodiscard]] bool isLoading() const { return m_isLoading; }

    /// Reads the file: as UTF-8, else as Latin-1. The text is empty if the file cannot be read.
    void load();

    /// Writes the text as UTF-8 if it has changed. Returns false on failure: the old file is intact
    /// then, and the text stays marked as changed.
    bool save();

    /// Enters the editor, or saves and leaves it, even when saving fails.
    void toggleEdit();

Q_SIGNALS:
    void markdownChanged();
    void hasUnsavedChangesChanged();
    void isEditingChanged();
    void isLoadingChanged();

private:
    [[nodiscard]] QString readText() const;
    void setIsLoading(bool isLoading);

    QUrl m_fileURL;
    QString m_displayName;
    FileSystem& m_fileSystem;
    QString m_markdown;
    bool m_hasUnsavedChanges = false;
    bool m_isEditing = false;
    bool m_isLoading = false;
};

} // namespace driftbox
