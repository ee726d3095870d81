#pragma once

#include "clipboard/TextRecognizer.h"

#include <chrono>
#include <functional>
#include <optional>
#include <stop_token>

#include <QtCore/QStringList>

class QImage;

namespace driftbox {

class PageTextReader;
class ReadingLimit;

/// Recognizes the text in pictures with Tesseract.
///
/// A picture is read in five languages. If any of them is not installed, it is read in the
/// installed ones instead, the user's own first. Stateless: calls may run concurrently. A call
/// releases all the memory it takes.
class OCREngine final : public TextRecognizer
{
public:
    /// Returns the recognizer, or null if it is not available. Called on any thread.
    using ReaderSource = std::function<const PageTextReader*()>;

    /// Loads the recognizer's module when the first picture is read. The result for a picture that
    /// takes longer than `limit` is empty.
    explicit OCREngine(std::chrono::milliseconds limit = std::chrono::seconds(15));

    /// Uses the recognizer from `source` instead of the module's.
    OCREngine(ReaderSource source, std::chrono::milliseconds limit);

    [[nodiscard]] QString recognizeText(const QByteArray& image) const override;

    /// Makes running and future calls return soon, with an empty result. Thread-safe.
    void stop() { m_stop.request_stop(); }

private:
    /// One pass; nullopt if `languages` is empty or one of them is not installed.
    [[nodiscard]] static std::optional<QString> run(const PageTextReader& reader,
                                                    const QImage& picture,
                                                    const QStringList& languages,
                                                    const ReadingLimit& limit);

    ReaderSource m_source;
    std::chrono::milliseconds m_limit;
    std::stop_source m_stop;
};

} // namespace driftbox
