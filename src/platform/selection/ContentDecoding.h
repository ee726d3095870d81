#pragma once

#include "platform/Pasteboard.h"

#include <QtCore/QByteArrayList>
#include <QtCore/QStringList>

namespace driftbox {

/// The formats of one copy as their owner sent them, in pieces; empty where there is none.
struct RawContent
{
    QByteArray textTarget; ///< the name of the target that the text came under
    std::optional<QByteArrayList> text;
    std::optional<QByteArrayList> rtf;
    std::optional<QByteArrayList> image;

    /// Whether decoding it takes so long that it is not to be done on the main thread.
    [[nodiscard]] bool isLarge() const;
};

struct DecodedContent
{
    PasteboardContent content;
    QStringList refusals; ///< a log line for each format that was refused
};

/// Makes sense of what an owner sent. Any thread. The raw bytes are freed on the way.
[[nodiscard]] DecodedContent decode(RawContent raw);

} // namespace driftbox
