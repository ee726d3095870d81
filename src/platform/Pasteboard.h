#pragma once

#include <optional>

#include <QtCore/QByteArray>
#include <QtCore/QObject>
#include <QtCore/QString>

namespace driftbox {

/// The pasteboard's content after one copy, in the formats that the program understands.
struct PasteboardContent
{
    std::optional<QString> text = {};
    std::optional<QByteArray> rtf = {};
    std::optional<QByteArray> png = {}; ///< always a complete, valid PNG file

    [[nodiscard]] bool isEmpty() const { return !text && !rtf && !png; }
    bool operator==(const PasteboardContent&) const = default;
};

/// The desktop's general pasteboard (the clipboard used by copy and paste).
///
/// Main thread only. Every call reads from memory and returns at once: the back-end fetches what
/// another program has copied in advance, asynchronously, with a time and a size limit, and the
/// change count is incremented only when that content is complete. Content that its owner marked as
/// secret, that is too large, that does not arrive in time or that cannot be decoded is reported as
/// absent.
class Pasteboard : public QObject
{
    Q_OBJECT

public:
    /// Incremented with every change of the content, by another program or by `write`.
    [[nodiscard]] virtual qint64 changeCount() const = 0;

    /// The content that `changeCount` refers to.
    [[nodiscard]] virtual PasteboardContent content() const = 0;

    /// Replaces the whole content. On return the change count has been incremented and `content`
    /// returns the new content. Other programs can paste it until another one copies something.
    virtual void write(const PasteboardContent& content) = 0;

Q_SIGNALS:
    /// The content that was there before the program started has been read. This does not count as
    /// a change. Emitted at most once, and never after a change.
    void initialContentArrived();

protected:
    using QObject::QObject;
};

} // namespace driftbox
