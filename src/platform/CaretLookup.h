#pragma once

#include <functional>
#include <optional>

#include <QtCore/QObject>
#include <QtCore/QRectF>

namespace driftbox {

/// Locates the text caret (or the selection) of the focused element in the focused application.
///
/// Main thread only. Never blocks: the application is queried asynchronously.
class CaretLookup : public QObject
{
    Q_OBJECT

public:
    /// The rectangle in points, origin at the top left corner of the primary screen, y pointing
    /// down; none when it cannot be determined.
    using Answer = std::function<void(std::optional<QRectF>)>;

    /// Calls `answer` exactly once, on the main thread, within 150 ms regardless of what the other
    /// application does, possibly before this function returns. `answer` is not called once `owner`
    /// has been destroyed.
    virtual void caretRectangle(QObject* owner, Answer answer) = 0;

protected:
    using QObject::QObject;
};

} // namespace driftbox
