#pragma once

#include <QtCore/QString>

namespace driftbox::bench {

/// The number of wrong, missing and surplus characters in all texts added.
struct CharacterErrors
{
    qsizetype errors = 0;
    qsizetype characters = 0;

    /// Adds the edit distance between `read` and `written`, ignoring empty lines and white space at
    /// the ends of lines.
    void add(const QString& written, const QString& read);
    void add(const CharacterErrors& other);

    [[nodiscard]] double percent() const;
};

/// `text` without any white space.
[[nodiscard]] QString withoutSpaces(QString text);

} // namespace driftbox::bench
