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

/// Reads the text in pictures by Tesseract.
///
/// A picture is read in five languages. If one of them is not installed, it is read instead in
/// those that are, the user's own first. Stateless: calls may run side by side. What a call takes
/// in memory it gives back.
class OCREngine final : public TextRecognizer
{
public:
    /// Gives the recognizer, or null when it cannot be had. Called on any thread.
    using ReaderSource = std::function<const PageTextReader*()>;

    /// Loads the recognizer's module when the first picture is read. A picture that takes longer
    /// than `limit` has no text.
    explicit OCREngine(std::chrono::milliseconds limit = std::chrono::seconds(15));

    /// Takes the recognizer from `source` instead.
    OCREngine(ReaderSource source, std::chrono::milliseconds limit);

    [[nodiscard]] QString recognizeText(const QByteArray& image) const override;

    /// Ends calls that are under way and all later ones soon, without text. Thread-safe.
    void stop() { m_stop.request_stop(); }

private:
    /// One pass: none when a language is not installed, or there is none to read in.
    [[nodiscard]] static std::optional<QString> run(const PageTextReader& reader,
                                                    const QImage& picture,
                                                    const QStringList& languages,
                                                    const ReadingLimit& limit);

    ReaderSource m_source;
    std::chrono::milliseconds m_limit;
    std::stop_source m_stop;
};

} // namespace driftbox
