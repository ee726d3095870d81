#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

namespace driftbox {

/// Reads the text in a picture.
class TextRecognizer
{
public:
    TextRecognizer() = default;
    Q_DISABLE_COPY_MOVE(TextRecognizer)
    virtual ~TextRecognizer() = default;

    /// The text in the picture whose file bytes are `image`, lines separated by a line feed; empty
    /// when there is none and for anything that goes wrong. May take long: never on the main
    /// thread. Thread-safe.
    [[nodiscard]] virtual QString recognizeText(const QByteArray& image) const = 0;
};

} // namespace driftbox
