#include "clipboard/recognition/PieceReader.h"

#include "clipboard/recognition/ColumnGaps.h"
#include "clipboard/recognition/RecognizedText.h"

#include <algorithm>
#include <optional>
#include <span>
#include <utility>

namespace driftbox {

namespace {

using Word = Reading::Word;
using Words = std::span<const Word>;

// Of the height; Tesseract finds characters in wider margins.
constexpr int pieceMarginDivisor = 12;

constexpr int minSpaceDivisor = 8; // of the height

bool isForeign(const Word& word)
{
    return isAlphabetic(word.text);
}

int minConfidenceOf(Words words)
{
    return std::ranges::min_element(words, {}, &Word::confidence)->confidence;
}

class Piece
{
public:
    Piece(const QImage& image, LineReader& reader, const ReadingLimit& limit)
        : m_image(image)
        , m_reader(reader)
        , m_limit(limit)
    {
    }

    PieceReading read(const LanguageChoice& languages)
    {
        tryAll(languages.likely);
        if (m_best.confidence < sureConfidence)
            tryAll(languages.unlikely);
        const auto alphabetic = firstAlphabetic(languages);
        if (isEastAsian(m_best.language) && alphabetic) {
            if (std::ranges::all_of(m_best.words, isForeign))
                preferReadingIn(*alphabetic);
            else
                rereadForeignWords(*alphabetic);
        }
        const bool isText = m_best.confidence >= minConfidence;
        return {isText ? tidied(m_best.text()) : QString(), m_best.confidence};
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

    /// The East Asian languages read Latin letters too, but with too much confidence.
    void preferReadingIn(const QString& alphabetic)
    {
        Reading reading = m_reader.read(m_image, alphabetic, m_limit);
        if (reading.confidence + likelinessMargin >= m_best.confidence)
            m_best = std::move(reading);
    }

    /// The East Asian languages miss spaces where the script changes.
    void findSpaces(const ColumnGaps& gaps)
    {
        std::vector<Word>& words = m_best.words;
        for (size_t i = 1; i < words.size(); ++i) {
            if (isForeign(words[i]) != isForeign(words[i - 1]) &&
                words[i - 1].text.back().isLetterOrNumber() &&
                gaps.before(words[i].box.left()).width() * minSpaceDivisor >= m_image.height())
                words[i].isAfterSpace = true;
        }
    }

    /// Rereads the words of an East Asian line that are in another script, separately.
    void rereadForeignWords(const QString& alphabetic)
    {
        const ColumnGaps gaps(m_image);
        findSpaces(gaps);
        const std::vector<Word> words = std::exchange(m_best.words, {});
        for (auto first = words.begin(); first != words.end();) {
            const auto last = std::find_if_not(first, words.end(), isForeign);
            if (last == first) {
                m_best.words.push_back(*first++);
                continue;
            }
            const int left = first == words.begin() ? 0 : gaps.before(first->box.left()).end;
            const int right =
                last == words.end() ? m_image.width() : gaps.before(last->box.left()).begin;
            appendBetter({first, last}, readBetween(left, right, alphabetic));
            first = last;
        }
    }

    [[nodiscard]] Reading readBetween(int left, int right, const QString& language)
    {
        if (left >= right)
            return {};
        const int margin = m_image.height() / pieceMarginDivisor;
        const QRect part(left, 0, right - left, m_image.height());
        QImage image(part.size() + QSize(2 * margin, 0), m_image.format());
        image.fill(Qt::white);
        for (int y = 0; y < part.height(); ++y)
            std::copy_n(m_image.constScanLine(y) + left, part.width(), image.scanLine(y) + margin);
        return m_reader.read(image, language, m_limit);
    }

    void appendBetter(Words words, const Reading& reading)
    {
        const bool isBetter = !reading.words.empty() &&
                              reading.confidence + likelinessMargin >= minConfidenceOf(words);
        const Words better = isBetter ? Words(reading.words) : words;
        m_best.words.insert(m_best.words.end(), better.begin(), better.end());
        m_best.words[m_best.words.size() - better.size()].isAfterSpace = words[0].isAfterSpace;
    }

    const QImage& m_image;
    LineReader& m_reader;
    const ReadingLimit& m_limit;
    Reading m_best;
};

} // namespace

PieceReading readPiece(const QImage& image, const LanguageChoice& languages, LineReader& reader,
                       const ReadingLimit& limit)
{
    return Piece(image, reader, limit).read(languages);
}

} // namespace driftbox
