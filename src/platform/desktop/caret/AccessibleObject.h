#pragma once

#include <functional>
#include <optional>
#include <utility>

#include <QtCore/QList>
#include <QtCore/QRect>
#include <QtCore/QString>
#include <QtCore/QVariant>
#include <QtDBus/QDBusConnection>

class QObject;

namespace driftbox {

/// Identifies an element of an application's user interface on the accessibility bus.
struct AccessibleReference
{
    QString service;
    QString path;

    bool operator==(const AccessibleReference&) const = default;
};

/// The relevant states of an element.
struct AccessibleStates
{
    bool active = false; ///< a window that has the keyboard focus
    bool editable = false;
    bool focused = false;
    bool showing = false;
    bool managesDescendants = false; ///< its children are transient and possibly very many
};

/// The characters from `start` up to, but not including, `end`.
struct TextRange
{
    int start = 0;
    int end = 0;

    [[nodiscard]] bool isEmpty() const { return end <= start; }
};

/// Queries one element asynchronously. Every query is answered once, later, with none when the
/// element does not respond in time or not in the expected form; never once `context` has been
/// destroyed. All rectangles are screen positions in the application's own coordinates. Main thread
/// only.
class AccessibleObject
{
public:
    template <typename T>
    using Answer = std::function<void(const std::optional<T>&)>;

    AccessibleObject(QDBusConnection bus, AccessibleReference reference)
        : m_bus(std::move(bus))
        , m_reference(std::move(reference))
    {
    }

    void askStates(QObject* context, const Answer<AccessibleStates>& answer) const;
    void askParent(QObject* context, const Answer<AccessibleReference>& answer) const;
    void askChildCount(QObject* context, const Answer<int>& answer) const;
    void askChildren(QObject* context, const Answer<QList<AccessibleReference>>& answer) const;
    void askExtents(QObject* context, const Answer<QRect>& answer) const;

    /// For the root object of an application.
    void askToolkitName(QObject* context, const Answer<QString>& answer) const;

    /// For an element with text. The unit of offsets is defined by the application.
    void askCaretOffset(QObject* context, const Answer<int>& answer) const;
    void askCharacterCount(QObject* context, const Answer<int>& answer) const;
    void askSelection(QObject* context, const Answer<TextRange>& answer) const;
    void askText(TextRange range, QObject* context, const Answer<QString>& answer) const;
    void askCharacterExtents(int offset, QObject* context, const Answer<QRect>& answer) const;

private:
    struct Query;

    template <typename T, typename Convert>
    void ask(const Query& query, QObject* context, Convert convert, const Answer<T>& answer) const;
    void send(const Query& query, QObject* context, Answer<QVariantList> answer) const;

    QDBusConnection m_bus;
    AccessibleReference m_reference;
};

} // namespace driftbox
