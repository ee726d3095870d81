#include "clipboard/recognition/PageReader.h"

#include "clipboard/ReadingLimit.h"
#include "clipboard/recognition/InkMap.h"
#include "clipboard/recognition/LanguageChoice.h"
#include "clipboard/recognition/LineImage.h"
#include "clipboard/recognition/LineReader.h"
#include "clipboard/recognition/PieceReader.h"
#include "clipboard/recognition/ReaderThreads.h"
#include "clipboard/recognition/ReadingOrder.h"
#include "clipboard/recognition/RecognizedText.h"
#include "clipboard/recognition/TextPieces.h"

#include <algorithm>

namespace driftbox {

namespace {

constexpr size_t sampleCount = 6;
constexpr int maxSampleLength = 24; // times the height
constexpr int minSampleLength = 3;
constexpr size_t minNoisePieces = 30;
constexpr qsizetype minWordLength = 3;

/// Reads the pieces of one page.
class Page
{
public:
    Page(const QImage& picture, const QStringList& languages, const ReadingLimit& limit)
        : m_languages(languages)
        , m_limit(limit)
        , m_ink(inkOf(picture))
    {
        for (TextLine& line : inReadingOrder(textPieces(m_ink.marks))) {
            m_lineLengths.push_back(line.size());
            std::ranges::move(line, std::back_inserter(m_pieces));
        }
    }

    QString read()
    {
        if (m_pieces.empty())
            return {};
        chooseLanguages();
        std::vector<PieceReading> readings(m_pieces.size());
        m_threads.run(m_pieces.size(), [&](LineReader& reader, size_t i) {
            readings[i] = readPiece(lineImage(m_ink, m_pieces[i]), m_choice, reader, m_limit);
        });
        return m_limit.isReached() || isNoise(readings) ? QString() : joined(readings);
    }

private:
    /// Determines the page's languages from a few samples. Alphabetic languages are tried first:
    /// they are fast, and never confident about text in another script.
    void chooseLanguages()
    {
        const std::vector<QImage> samples = sampleImages();
        QStringList alphabetic;
        QStringList eastAsian;
        for (const QString& language : m_languages)
            (isEastAsian(language) ? eastAsian : alphabetic).push_back(language);

        std::vector<SampleReadings> readings = readSamples(samples, alphabetic);
        const bool mayBeEastAsian = !explainAll(readings);
        if (mayBeEastAsian)
            std::ranges::move(readSamples(samples, eastAsian), std::back_inserter(readings));
        m_choice = languagesOf(std::move(readings));
        if (!mayBeEastAsian)
            m_choice.unlikely += eastAsian;
    }

    [[nodiscard]] std::vector<SampleReadings> readSamples(const std::vector<QImage>& samples,
                                                          const QStringList& languages)
    {
        std::vector<SampleReadings> readings;
        for (const QString& language : languages)
            readings.push_back({.language = language, .confidences = {}});
        m_threads.run(readings.size(), [&](LineReader& reader, size_t i) {
            for (const QImage& sample : samples) {
                const Reading reading = reader.read(sample, readings[i].language, m_limit);
                readings[i].confidences.push_back(reading.confidence);
            }
        });
        return readings;
    }

    [[nodiscard]] std::vector<QImage> sampleImages() const
    {
        std::vector<QRect> candidates;
        std::ranges::copy_if(m_pieces, std::back_inserter(candidates), [](const QRect& piece) {
            return piece.width() >= minSampleLength * piece.height();
        });
        if (candidates.empty())
            candidates = m_pieces;

        std::vector<QImage> images;
        const size_t count = std::min(sampleCount, candidates.size());
        for (size_t i = 0; i < count; ++i) {
            QRect piece = candidates[(2 * i + 1) * candidates.size() / (2 * count)];
            piece.setWidth(std::min(piece.width(), maxSampleLength * piece.height()));
            images.push_back(lineImage(m_ink, piece));
        }
        return images;
    }

    /// Some of many specks may look like letters, but hardly any like a word.
    static bool isNoise(const std::vector<PieceReading>& readings)
    {
        return readings.size() >= minNoisePieces &&
               std::ranges::none_of(readings, [](const PieceReading& reading) {
                   return reading.confidence >= sureConfidence &&
                          reading.text.size() >= minWordLength;
               });
    }

    [[nodiscard]] QString joined(const std::vector<PieceReading>& readings) const
    {
        QStringList lines;
        auto next = readings.begin();
        for (const size_t length : m_lineLengths) {
            QStringList line;
            for (size_t i = 0; i < length; ++i, ++next) {
                if (!next->text.isEmpty())
                    line.push_back(next->text);
            }
            if (!line.isEmpty())
                lines.push_back(line.join(u' '));
        }
        return lines.join(u'\n');
    }

    QStringList m_languages;
    ReadingLimit m_limit;
    InkMap m_ink;
    std::vector<QRect> m_pieces; ///< line by line
    std::vector<size_t> m_lineLengths;
    LanguageChoice m_choice;
    ReaderThreads m_threads;
};

} // namespace

QString readPage(const QImage& picture, const QStringList& languages, const ReadingLimit& limit)
{
    return Page(picture, languages, limit).read();
}

} // namespace driftbox
