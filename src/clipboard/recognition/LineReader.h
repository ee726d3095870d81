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

/// The reading of a line in one language. Confidences range from 0 to 100.
struct Reading
{
    struct Word
    {
        QString text;
        QRect box; ///< in pixels of the line's picture
        int confidence = 0;
        bool isAfterSpace = false;
    };

    QString language;
    int confidence = 0;
    std::vector<Word> words;

    [[nodiscard]] QString text() const;
};

/// Reads pictures of single lines with Tesseract. A language is loaded when it is first needed and
/// stays loaded. Not thread-safe.
class LineReader
{
public:
    LineReader();
    ~LineReader();
    Q_DISABLE_COPY_MOVE(LineReader)

    /// `line` is black on white (Format_Grayscale8). The reading is empty if the language cannot be
    /// loaded or the limit is reached.
    [[nodiscard]] Reading read(const QImage& line, const QString& language,
                               const ReadingLimit& limit);

private:
    [[nodiscard]] tesseract::TessBaseAPI* engine(const QString& language);

    std::map<QString, std::unique_ptr<tesseract::TessBaseAPI>> m_engines;
};

} // namespace driftbox
