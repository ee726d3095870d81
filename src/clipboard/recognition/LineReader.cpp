#include "clipboard/recognition/LineReader.h"

#include "clipboard/ReadingLimit.h"

#include <algorithm>

#include <tesseract/baseapi.h>
#include <tesseract/ocrclass.h>

namespace driftbox {

namespace {

// The resolution of print with the height that lines are scaled to; Tesseract would guess it.
constexpr int dotsPerInch = 200;

std::vector<Reading::Word> wordsOf(tesseract::TessBaseAPI& api)
{
    std::vector<Reading::Word> words;
    const std::unique_ptr<char[]> line(api.GetUTF8Text());
    const std::unique_ptr<tesseract::ResultIterator> it(api.GetIterator());
    if (!line || !it)
        return words;
    const QString whole = QString::fromUtf8(line.get());
    qsizetype end = 0;
    do {
        const std::unique_ptr<char[]> text(it->GetUTF8Text(tesseract::RIL_WORD));
        int left = 0;
        int top = 0;
        int right = 0;
        int bottom = 0;
        if (!text || text[0] == '\0' ||
            !it->BoundingBox(tesseract::RIL_WORD, &left, &top, &right, &bottom))
            continue;
        Reading::Word word{.text = QString::fromUtf8(text.get()),
                           .box = QRect(left, top, right - left, bottom - top),
                           .confidence = static_cast<int>(it->Confidence(tesseract::RIL_WORD))};
        const qsizetype begin = std::max(end, whole.indexOf(word.text, end));
        word.isAfterSpace = begin > end;
        end = begin + word.text.size();
        words.push_back(std::move(word));
    } while (it->Next(tesseract::RIL_WORD));
    return words;
}

} // namespace

QString Reading::text() const
{
    QString text;
    for (const Word& word : words) {
        if (word.isAfterSpace)
            text += u' ';
        text += word.text;
    }
    return text;
}

LineReader::LineReader() = default;
LineReader::~LineReader() = default;

tesseract::TessBaseAPI* LineReader::engine(const QString& language)
{
    auto& engine = m_engines[language];
    if (!engine) {
        engine = std::make_unique<tesseract::TessBaseAPI>();
        if (engine->Init(nullptr, language.toUtf8().constData(), tesseract::OEM_LSTM_ONLY) != 0)
            engine->End();
        engine->SetPageSegMode(tesseract::PSM_RAW_LINE);
    }
    return engine.get();
}

Reading LineReader::read(const QImage& line, const QString& language, const ReadingLimit& limit)
{
    Reading reading;
    reading.language = language;
    const int left = limit.timeLeft();
    if (left == 0)
        return reading;
    tesseract::TessBaseAPI& api = *engine(language);
    api.SetImage(line.constBits(), line.width(), line.height(), 1,
                 static_cast<int>(line.bytesPerLine()));
    api.SetSourceResolution(dotsPerInch);
    tesseract::ETEXT_DESC monitor;
    monitor.set_deadline_msecs(left);
    if (api.Recognize(&monitor) != 0)
        return reading;
    reading.confidence = api.MeanTextConf();
    reading.words = wordsOf(api);
    api.Clear();
    return reading;
}

} // namespace driftbox
