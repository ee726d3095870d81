#pragma once

#include "platform/Pasteboard.h"

#include <QtCore/QByteArrayList>
#include <QtCore/QStringList>

namespace driftbox {

/// The formats of one copy as the owner sent them, in pieces; none for missing formats.
struct RawContent
{
    QByteArray textTarget; ///< the name of the target that provided the text
    std::optional<QByteArrayList> text;
    std::optional<QByteArrayList> rtf;
    std::optional<QByteArrayList> image;

    /// Whether decoding takes too long for the main thread.
    [[nodiscard]] bool isLarge() const;
};

struct DecodedContent
{
    PasteboardContent content;
    QStringList refusals; ///< a log line for each refused format
};

/// Decodes what an owner sent. Thread-safe. The raw bytes are freed along the way.
[[nodiscard]] DecodedContent decode(RawContent raw);

} // namespace driftbox
