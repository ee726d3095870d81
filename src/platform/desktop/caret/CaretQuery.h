#pragma once

#include "platform/desktop/caret/AccessibleObject.h"
#include "platform/desktop/caret/CaretGeometry.h"

#include <functional>
#include <optional>

#include <QtCore/QObject>

namespace driftbox {

class ActiveWindow;

/// Queries the caret of one element in asynchronous rounds: the text and its window, the text
/// before the caret, the extents of the relevant characters. Destroying the query cancels it. Main
/// thread only.
class CaretQuery final : public QObject
{
    Q_OBJECT

public:
    struct Result
    {
        bool focused = false;  ///< the element still has the keyboard focus
        bool hasCaret = false; ///< it has a caret, or may get one
        /// In the application's own coordinates; none when the element has no text or its position
        /// is unknown.
        std::optional<QRectF> rectangle;
        std::optional<CaretGeometry::Window> window;
    };

    /// Starts the query. `activeWindow` must outlive it.
    CaretQuery(const QDBusConnection& bus, const AccessibleReference& element,
               ActiveWindow& activeWindow, QObject* parent);

Q_SIGNALS:
    /// Emitted once, from the event loop.
    void finished(const driftbox::CaretQuery::Result& result);

private:
    void requestContext();
    void requestTopLevel(const AccessibleObject& topLevel);
    void requestCharacters();
    void conclude();

    /// Each registers a reply that the next round waits for, and handles its value if there is one.
    template <typename T>
    std::function<void(const std::optional<T>&)> awaited(std::function<void(const T&)> handle);
    template <typename T>
    std::function<void(const std::optional<T>&)> into(T& target);
    template <typename T>
    std::function<void(const std::optional<T>&)> into(std::optional<T>& target);

    QDBusConnection m_bus;
    AccessibleObject m_element;
    AccessibleObject m_application;

    int m_pendingReplies = 0;
    void (CaretQuery::*m_next)() = &CaretQuery::requestContext;

    AccessibleStates m_states;
    std::optional<int> m_caretOffset;
    QString m_toolkit;
    QString m_characterBefore;
    QList<AccessibleReference> m_children;
    QList<AccessibleReference> m_topLevels;
    CaretGeometry::Text m_text;
    std::optional<QRect> m_deviceFrame;
    std::optional<QRect> m_reportedFrame;
};

} // namespace driftbox
