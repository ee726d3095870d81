#pragma once

#include <functional>
#include <optional>

#include <QtCore/QObject>
#include <QtCore/QRectF>

namespace driftbox {

/// Where the text caret (or the selection) of the focused element of the focused application is.
///
/// Main thread only, and never blocks it: the application is asked elsewhere.
class CaretLookup : public QObject
{
    Q_OBJECT

public:
    /// The rectangle in points, origin at the top left corner of the primary screen, y growing
    /// downwards; none when it cannot be had.
    using Answer = std::function<void(std::optional<QRectF>)>;

    /// Calls `answer` exactly once, on the main thread, within 150 ms whatever the other
    /// application does, perhaps before this returns. Nothing is called once `owner` has been
    /// destroyed.
    virtual void caretRectangle(QObject* owner, Answer answer) = 0;

protected:
    using QObject::QObject;
};

} // namespace driftbox
