#pragma once

#include <optional>

#include <QtCore/QList>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QUrl>

namespace driftbox {

/// The parsed command line.
struct CommandLine
{
    std::optional<QString> answer; ///< to be printed instead of starting the program
    bool isUnderstood = true;      ///< if false, `answer` describes the error
    QList<QUrl> documents;         ///< the files to open

    /// `arguments` excludes the program's name; relative paths are resolved against `folder`.
    [[nodiscard]] static CommandLine parse(const QStringList& arguments, const QString& folder);
};

} // namespace driftbox
