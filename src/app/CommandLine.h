#pragma once

#include <optional>

#include <QtCore/QList>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QUrl>

namespace driftbox {

/// What the program was started with.
struct CommandLine
{
    std::optional<QString> answer; ///< to print, and then nothing else is to be done
    bool isUnderstood = true;      ///< false: `answer` says what is wrong
    QList<QUrl> documents;         ///< the files to open

    /// `arguments` without the program's name; relative files are those of `folder`.
    [[nodiscard]] static CommandLine parse(const QStringList& arguments, const QString& folder);
};

} // namespace driftbox
