#pragma once

#include <optional>

#include <QtCore/QByteArray>
#include <QtCore/QString>

namespace driftbox {

/// The resource files that make up a document's page. They are read on every call.
class MarkdownResource
{
public:
    /// `resourcesFolder` contains the folder "MarkdownReader", or the files themselves.
    explicit MarkdownResource(QString resourcesFolder);

    /// The file's text; none when it is in neither location or is not valid UTF-8.
    [[nodiscard]] std::optional<QString> bundledString(const QString& name) const;

    /// The page with its style sheet and scripts inlined; none when one of them is missing.
    [[nodiscard]] std::optional<QString> shellHTML() const;

    /// The page as it is loaded, in UTF-8. Its scripts carry a fresh, unpredictable nonce; no other
    /// scripts are executed.
    [[nodiscard]] std::optional<QByteArray> pageWithNonce() const;

private:
    QString m_folder;
};

} // namespace driftbox
