#pragma once

#include <optional>

#include <QtCore/QByteArray>
#include <QtCore/QString>

namespace driftbox {

/// The files that the page of a document is made of. They are read anew at every call.
class MarkdownResource
{
public:
    /// `resourcesFolder` holds the folder "MarkdownReader", or the files themselves.
    explicit MarkdownResource(QString resourcesFolder);

    /// The file's text; none when it is in neither place or is not UTF-8.
    [[nodiscard]] std::optional<QString> bundledString(const QString& name) const;

    /// The page with its style sheet and scripts in it; none when one of them is missing.
    [[nodiscard]] std::optional<QString> shellHTML() const;

    /// That page as it is loaded, in UTF-8: its scripts bear a mark of this call, which nobody can
    /// foresee, and no others are run.
    [[nodiscard]] std::optional<QByteArray> markedPage() const;

private:
    QString m_folder;
};

} // namespace driftbox
