#pragma once

#include "platform/Pasteboard.h"
#include "platform/selection/PasteboardTargets.h"

#include <memory>

#include <QtCore/QtGlobal>

namespace driftbox {

/// The bytes of one format, read sequentially. Main thread only.
class ByteStream
{
public:
    ByteStream() = default;
    Q_DISABLE_COPY_MOVE(ByteStream)
    virtual ~ByteStream() = default;

    /// Bounds on the number of remaining bytes.
    [[nodiscard]] virtual qsizetype minRemaining() const = 0;
    [[nodiscard]] virtual qsizetype maxRemaining() const = 0;
    /// Up to `size` more bytes; empty at the end.
    [[nodiscard]] virtual QByteArray next(qsizetype size) = 0;
};

/// The content that a selection offers to other programs, under all names that they may know its
/// formats by.
class OfferedContent
{
public:
    /// Offers nothing.
    OfferedContent() = default;
    explicit OfferedContent(const PasteboardContent& content, const OpaqueFormats& opaque = {});

    /// The target names, without those that every selection supports.
    [[nodiscard]] const QByteArrayList& targets() const { return m_targets; }

    /// The name of the type with which `target` is answered.
    [[nodiscard]] static QByteArray typeOf(const QByteArray& target);

    /// The data of one of the targets. A long text is encoded while it is being read.
    [[nodiscard]] std::unique_ptr<ByteStream> open(const QByteArray& target) const;

private:
    PasteboardContent m_content;
    OpaqueFormats m_opaque;
    QByteArrayList m_targets;
};

} // namespace driftbox
