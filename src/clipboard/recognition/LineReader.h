#pragma once

#include <map>
#include <memory>
#include <vector>

#include <QtCore/QString>
#include <QtGui/QImage>

namespace tesseract {
class TessBaseAPI;
}

namespace driftbox {

class ReadingLimit;

/// What one language makes of one line. Confidences run from 0 to 100.
struct Reading
{
    struct Word
    {
        QString text;
        QRect box; ///< in the picture of the line
        int confidence = 0;
        bool isAfterBlank = false;
    };

    QString language;
    int confidence = 0;
    std::vector<Word> words;

    [[nodiscard]] QString text() const;
};

/// Reads pictures of single lines with Tesseract. Loads a language when it is first wanted and
/// keeps it. One thread at a time.
class LineReader
{
public:
    LineReader();
    ~LineReader();
    Q_DISABLE_COPY_MOVE(LineReader)

    /// `line` has the format Grayscale8, black on white. A language that cannot be loaded and a
    /// limit that is reached give a reading without text.
    [[nodiscard]] Reading read(const QImage& line, const QString& language,
                               const ReadingLimit& limit);

private:
    [[nodiscard]] tesseract::TessBaseAPI* engine(const QString& language);

    std::map<QString, std::unique_ptr<tesseract::TessBaseAPI>> m_engines;
};

} // namespace driftbox
