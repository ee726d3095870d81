#pragma once

#include "platform/Pasteboard.h"
#include "platform/selection/PasteboardTargets.h"

#include <memory>

namespace driftbox {

/// The bytes of one format, handed out part by part. Main thread only.
class ByteStream
{
public:
    ByteStream() = default;
    ByteStream(const ByteStream&) = delete;
    ByteStream& operator=(const ByteStream&) = delete;
    virtual ~ByteStream() = default;

    /// Bounds of the number of bytes that are still to come.
    [[nodiscard]] virtual qsizetype minRemaining() const = 0;
    [[nodiscard]] virtual qsizetype maxRemaining() const = 0;
    /// At most `size` bytes more; empty at the end.
    [[nodiscard]] virtual QByteArray next(qsizetype size) = 0;
};

/// What a selection offers to other programs: some content under all the names that they know its
/// formats by.
class OfferedContent
{
public:
    /// Offers nothing.
    OfferedContent() = default;
    explicit OfferedContent(const PasteboardContent& content, const OpaqueFormats& opaque = {});

    /// The names, without those that every selection has.
    [[nodiscard]] const QByteArrayList& targets() const { return m_targets; }

    /// The name of the type that `target` is answered with.
    [[nodiscard]] static QByteArray typeOf(const QByteArray& target);

    /// The bytes for one of the targets. A long text is encoded while it is being read.
    [[nodiscard]] std::unique_ptr<ByteStream> open(const QByteArray& target) const;

private:
    PasteboardContent m_content;
    OpaqueFormats m_opaque;
    QByteArrayList m_targets;
};

} // namespace driftbox
