#pragma once

#include "platform/Pasteboard.h"

#include <functional>

#include <QtCore/QByteArrayList>
#include <QtCore/QStringList>

namespace driftbox {

class TaskRunner;

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

/// Decodes for the main thread: large contents in the background, small ones within the call. Calls
/// `done` on the main thread unless `owner` has been destroyed by then. Refused formats are logged.
void decode(RawContent raw, TaskRunner& taskRunner, QObject* owner,
            std::function<void(const PasteboardContent&)> done);

} // namespace driftbox
