#include "clipboard/recognition/PieceReader.h"

#include "clipboard/recognition/RecognizedText.h"

#include <algorithm>
#include <optional>
#include <span>

namespace driftbox {

namespace {

using Words = std::span<const Reading::Word>;

class Piece
{
public:
    Piece(const QImage& image, LineReader& reader, const ReadingLimit& limit)
        : m_image(image)
        , m_reader(reader)
        , m_limit(limit)
    {
    }

    QString read(const LanguageChoice& languages)
    {
        tryAll(languages.likely);
        if (m_best.confidence < sureConfidence)
            tryAll(languages.unlikely);
        const auto alphabetic = firstAlphabetic(languages);
        if (isEastAsian(m_best.language) && alphabetic) {
            if (hasEastAsian(m_best.text))
                rereadForeignWords(*alphabetic);
            else
                preferIn(*alphabetic);
        }
        return m_best.confidence < leastConfidence ? QString() : tidied(m_best.text);
    }

private:
    static std::optional<QString> firstAlphabetic(const LanguageChoice& languages)
    {
        for (const QString& language : languages.likely + languages.unlikely) {
            if (!isEastAsian(language))
                return language;
        }
        return std::nullopt;
    }

    void tryAll(const QStringList& languages)
    {
        for (const QString& language : languages) {
            Reading reading = m_reader.read(m_image, language, m_limit);
            if (reading.confidence > m_best.confidence + likelinessMargin)
                m_best = std::move(reading);
        }
    }

    /// The eastern languages read Latin letters too, but not as well as they think.
    void preferIn(const QString& alphabetic)
    {
        Reading reading = m_reader.read(m_image, alphabetic, m_limit);
        if (reading.confidence + likelinessMargin >= m_best.confidence)
            m_best = std::move(reading);
    }

    /// Takes the words that stand in an eastern line in another script from a reading of their own.
    void rereadForeignWords(const QString& alphabetic)
    {
        const auto isForeign = [](const Reading::Word& word) { return isAlphabetic(word.text); };
        const Words words(m_best.words);
        if (std::ranges::none_of(words, isForeign))
            return;
        const Reading reading = m_reader.read(m_image, alphabetic, m_limit);
        qsizetype position = 0; // in the text, where the next word is looked for
        for (auto word = words.begin(); word != words.end();) {
            const auto first = std::find_if(word, words.end(), isForeign);
            word = std::find_if_not(first, words.end(), isForeign);
            if (first == word)
                break;
            // The boxes of badly read words are too wide.
            const int begin = first == words.begin() ? 0 : std::prev(first)->box.right();
            const int end = word == words.end() ? m_image.width() : word->box.left();
            replace({first, word}, wordsBetween(begin, end, reading), position);
        }
    }

    static std::vector<Reading::Word> wordsBetween(int begin, int end, const Reading& reading)
    {
        std::vector<Reading::Word> words;
        std::ranges::copy_if(reading.words, std::back_inserter(words), [&](const auto& word) {
            const int inside = std::min(end, word.box.right()) - std::max(begin, word.box.left());
            return 2 * inside >= word.box.width();
        });
        return words;
    }

    static int leastConfidenceOf(Words words)
    {
        return std::ranges::min_element(words, {}, &Reading::Word::confidence)->confidence;
    }

    void replace(Words words, Words better, qsizetype& position)
    {
        qsizetype begin = -1;
        for (const Reading::Word& word : words) {
            const qsizetype found = m_best.text.indexOf(word.text, position);
            if (found < 0)
                return;
            begin = begin < 0 ? found : begin;
            position = found + word.text.size();
        }
        if (better.empty() || leastConfidenceOf(better) < leastConfidenceOf(words))
            return;
        QStringList texts;
        for (const Reading::Word& word : better)
            texts.push_back(word.text);
        const QString text = texts.join(u' ');
        m_best.text.replace(begin, position - begin, text);
        position = begin + text.size();
    }

    const QImage& m_image;
    LineReader& m_reader;
    const ReadingLimit& m_limit;
    Reading m_best;
};

} // namespace

QString readPiece(const QImage& image, const LanguageChoice& languages, LineReader& reader,
                  const ReadingLimit& limit)
{
    return Piece(image, reader, limit).read(languages);
}

} // namespace driftbox
