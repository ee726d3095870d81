#pragma once

#include "platform/desktop/caret/AccessibleObject.h"
#include "platform/desktop/caret/CaretGeometry.h"

#include <functional>
#include <optional>

#include <QtCore/QObject>

namespace driftbox {

class ActiveWindow;

/// One question for the caret of one element, asked in rounds without ever waiting: about the
/// text and its window, for the text before the caret, about the characters that decide. Destroying
/// it ends it. Main thread only.
class CaretQuery final : public QObject
{
    Q_OBJECT

public:
    struct Result
    {
        bool focused = false;  ///< whether the element still has the keyboard focus
        bool hasCaret = false; ///< whether there is one, wherever, or is to be one
        /// In the application's own coordinates; none when it has no text or cannot tell.
        std::optional<QRectF> rectangle;
        std::optional<CaretGeometry::Window> window;
    };

    /// Starts to ask. `activeWindow` must outlive the query.
    CaretQuery(const QDBusConnection& bus, const AccessibleReference& element,
               ActiveWindow& activeWindow, QObject* parent);

Q_SIGNALS:
    /// Once, later.
    void finished(const driftbox::CaretQuery::Result& result);

private:
    void askForContext();
    void askAboutTopLevel(const AccessibleObject& topLevel);
    void askAboutCharacters();
    void conclude();

    /// Each counts an answer to come before the next round, and uses it when it is one.
    template <typename T>
    std::function<void(const std::optional<T>&)> awaited(std::function<void(const T&)> handle);
    template <typename T>
    std::function<void(const std::optional<T>&)> into(T& target);
    template <typename T>
    std::function<void(const std::optional<T>&)> into(std::optional<T>& target);

    QDBusConnection m_bus;
    AccessibleObject m_element;
    AccessibleObject m_application;

    int m_awaited = 0;
    void (CaretQuery::*m_next)() = &CaretQuery::askForContext;

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
