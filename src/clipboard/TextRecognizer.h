#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

namespace driftbox {

/// Recognizes the text in pictures.
class TextRecognizer
{
public:
    TextRecognizer() = default;
    Q_DISABLE_COPY_MOVE(TextRecognizer)
    virtual ~TextRecognizer() = default;

    /// The text in `image`, the contents of a picture file, with lines separated by line feeds;
    /// empty if there is none and on any error. Slow: do not call it on the main thread.
    /// Thread-safe.
    [[nodiscard]] virtual QString recognizeText(const QByteArray& image) const = 0;
};

} // namespace driftbox
