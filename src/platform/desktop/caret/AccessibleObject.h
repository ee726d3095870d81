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

/// An element of some application's user interface, by the names that the accessibility bus gives.
struct AccessibleReference
{
    QString service;
    QString path;

    bool operator==(const AccessibleReference&) const = default;
};

/// Some of the states an element can be in.
struct AccessibleStates
{
    bool active = false; ///< a window that has the keyboard
    bool editable = false;
    bool focused = false;
    bool showing = false;
    bool managesDescendants = false; ///< its children come and go, and may be very many
};

/// Characters `start` up to, but without, `end`.
struct TextRange
{
    int start = 0;
    int end = 0;

    [[nodiscard]] bool isEmpty() const { return end <= start; }
};

/// Asks one element, asynchronously. Every question is answered once, later, with none when the
/// element does not answer in time or not in the expected form; not at all once `context` has been
/// destroyed. All rectangles are on the screen in the application's own coordinates. Main thread
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

    /// Of the element that stands for the whole application.
    void askToolkitName(QObject* context, const Answer<QString>& answer) const;

    /// Of an element with text. The unit of offsets is the application's own.
    void askCaretOffset(QObject* context, const Answer<int>& answer) const;
    void askCharacterCount(QObject* context, const Answer<int>& answer) const;
    void askSelection(QObject* context, const Answer<TextRange>& answer) const;
    void askText(TextRange range, QObject* context, const Answer<QString>& answer) const;
    void askCharacterExtents(int offset, QObject* context, const Answer<QRect>& answer) const;

private:
    struct Question;

    template <typename T, typename Convert>
    void ask(const Question& question, QObject* context, Convert convert,
             const Answer<T>& answer) const;
    void send(const Question& question, QObject* context, Answer<QVariantList> answer) const;

    QDBusConnection m_bus;
    AccessibleReference m_reference;
};

} // namespace driftbox
