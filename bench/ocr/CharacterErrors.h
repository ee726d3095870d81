#pragma once

#include <QtCore/QString>

namespace driftbox::bench {

/// Wrong, missing and surplus characters, summed up over many texts.
struct CharacterErrors
{
    qsizetype errors = 0;
    qsizetype characters = 0;

    /// Counts what has to be changed in `read` to get `written`. Lines are compared without the
    /// blanks at their ends and without empty ones.
    void add(const QString& written, const QString& read);
    void add(const CharacterErrors& other);

    [[nodiscard]] double percent() const;
};

/// `text` without any white space.
[[nodiscard]] QString withoutBlanks(QString text);

} // namespace driftbox::bench
