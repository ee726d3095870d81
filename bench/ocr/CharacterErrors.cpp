#include "bench/ocr/CharacterErrors.h"

#include <algorithm>
#include <numeric>
#include <vector>

#include <QtCore/QStringList>

namespace driftbox::bench {

namespace {

QString comparable(const QString& text)
{
    QStringList lines;
    for (const QString& line : text.split(u'\n')) {
        if (const QString trimmed = line.trimmed(); !trimmed.isEmpty())
            lines.push_back(trimmed);
    }
    return lines.join(u'\n');
}

/// The Levenshtein distance.
qsizetype distance(const QString& a, const QString& b)
{
    std::vector<qsizetype> row(static_cast<size_t>(b.size() + 1));
    std::iota(row.begin(), row.end(), 0);
    for (qsizetype i = 0; i < a.size(); ++i) {
        qsizetype diagonal = std::exchange(row[0], i + 1);
        for (size_t j = 1; j < row.size(); ++j) {
            const bool isSame = a[i] == b[static_cast<qsizetype>(j) - 1];
            const qsizetype substituted = diagonal + (isSame ? 0 : 1);
            diagonal = row[j];
            row[j] = std::min({substituted, row[j] + 1, row[j - 1] + 1});
        }
    }
    return row.back();
}

} // namespace

void CharacterErrors::add(const QString& written, const QString& read)
{
    errors += distance(comparable(written), comparable(read));
    characters += comparable(written).size();
}

void CharacterErrors::add(const CharacterErrors& other)
{
    errors += other.errors;
    characters += other.characters;
}

double CharacterErrors::percent() const
{
    return characters == 0 ? 0
                           : 100.0 * static_cast<double>(errors) / static_cast<double>(characters);
}

QString withoutSpaces(QString text)
{
    text.removeIf([](QChar character) { return character.isSpace(); });
    return text;
}

} // namespace driftbox::bench
