#pragma once

#include <optional>

#include <QtCore/QByteArray>
#include <QtCore/QObject>
#include <QtCore/QString>

namespace driftbox {

/// What one copy put on the pasteboard, in the forms that the program understands.
struct PasteboardContent
{
    std::optional<QString> text = {};
    std::optional<QByteArray> rtf = {};
    std::optional<QByteArray> png = {}; ///< always a complete PNG file that decodes

    [[nodiscard]] bool isEmpty() const { return !text && !rtf && !png; }
    bool operator==(const PasteboardContent&) const = default;
};

/// The desktop's general pasteboard (the clipboard that copy and paste use).
///
/// Main thread only. Every call is a look at memory and returns at once: the back-end fetches what
/// another program has copied beforehand, asynchronously, with a time and a size limit, and the
/// change count moves only when that content is complete. Content that its owner marked secret,
/// that is too large, that does not arrive in time or does not decode reads as absent.
class Pasteboard : public QObject
{
    Q_OBJECT

public:
    /// Grows with every change of the content, by another program or by `write`.
    [[nodiscard]] virtual qint64 changeCount() const = 0;

    /// The content at `changeCount`.
    [[nodiscard]] virtual PasteboardContent content() const = 0;

    /// Replaces the whole content. The change count has moved and `content` answers with the new
    /// content when this returns. Other programs can paste it until another one copies.
    virtual void write(const PasteboardContent& content) = 0;

Q_SIGNALS:
    /// The content that was there before the program started has arrived. It is not a change: the
    /// count has not moved. Emitted at most once, and not at all once the count has moved.
    void initialContentArrived();

protected:
    using QObject::QObject;
};

} // namespace driftbox
