#include "platform/desktop/caret/AccessibleObject.h"

#include <chrono>
#include <cstdint>
#include <utility>

#include <QtDBus/QDBusArgument>
#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusObjectPath>
#include <QtDBus/QDBusPendingCallWatcher>
#include <QtDBus/QDBusVariant>

using namespace Qt::StringLiterals;

namespace driftbox {

namespace {

// Longer than any caret request runs.
constexpr std::chrono::milliseconds timeout{150};

const QString accessibleInterface = u"org.a11y.atspi.Accessible"_s;
const QString componentInterface = u"org.a11y.atspi.Component"_s;
const QString textInterface = u"org.a11y.atspi.Text"_s;

constexpr uint screenCoordinates = 0;

/// Bit numbers as defined by AT-SPI.
enum class State : std::uint8_t {
    active = 1,
    editable = 7,
    focused = 12,
    showing = 25,
    managesDescendants = 31,
};

AccessibleStates toStates(const QVariantList& arguments)
{
    const auto words = qdbus_cast<QList<uint>>(arguments.first());
    const uint bits = words.value(0);
    const auto has = [bits](State state) { return (bits >> static_cast<uint>(state) & 1U) != 0; };
    return {.active = has(State::active),
            .editable = has(State::editable),
            .focused = has(State::focused),
            .showing = has(State::showing),
            .managesDescendants = has(State::managesDescendants)};
}

AccessibleReference nextReference(const QDBusArgument& argument)
{
    QString service;
    QDBusObjectPath path;
    argument.beginStructure();
    argument >> service >> path;
    argument.endStructure();
    return {service, path.path()};
}

QList<AccessibleReference> toReferences(const QVariantList& arguments)
{
    QList<AccessibleReference> references;
    const auto array = arguments.first().value<QDBusArgument>();
    array.beginArray();
    while (!array.atEnd())
        references.append(nextReference(array));
    array.endArray();
    return references;
}

QRect toRectangle(const QVariantList& arguments)
{
    return {arguments.at(0).toInt(), arguments.at(1).toInt(), arguments.at(2).toInt(),
            arguments.at(3).toInt()};
}

QRect structureToRectangle(const QVariantList& arguments)
{
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
    const auto structure = arguments.first().value<QDBusArgument>();
    structure.beginStructure();
    structure >> x >> y >> width >> height;
    structure.endStructure();
    return {x, y, width, height};
}

QString toText(const QVariantList& arguments)
{
    return arguments.first().toString();
}

QVariant propertyValue(const QVariantList& arguments)
{
    return arguments.first().value<QDBusVariant>().variant();
}

int propertyToInteger(const QVariantList& arguments)
{
    return propertyValue(arguments).toInt();
}

QString propertyToText(const QVariantList& arguments)
{
    return propertyValue(arguments).toString();
}

AccessibleReference propertyToReference(const QVariantList& arguments)
{
    const QVariant value = propertyValue(arguments);
    const auto structure = value.value<QDBusArgument>();
    return structure.currentSignature() == u"(so)" ? nextReference(structure)
                                                   : AccessibleReference();
}

TextRange toRange(const QVariantList& arguments)
{
    return {arguments.at(0).toInt(), arguments.at(1).toInt()};
}

} // namespace

struct AccessibleObject::Query
{
    QString interface;
    QString method;
    QVariantList arguments;
    QString replySignature;

    static Query property(const QString& interface, const QString& name)
    {
        return {u"org.freedesktop.DBus.Properties"_s, u"Get"_s, {interface, name}, u"v"_s};
    }
};

void AccessibleObject::askStates(QObject* context, const Answer<AccessibleStates>& answer) const
{
    ask({accessibleInterface, u"GetState"_s, {}, u"au"_s}, context, toStates, answer);
}

void AccessibleObject::askParent(QObject* context, const Answer<AccessibleReference>& answer) const
{
    ask(Query::property(accessibleInterface, u"Parent"_s), context, propertyToReference, answer);
}

void AccessibleObject::askChildCount(QObject* context, const Answer<int>& answer) const
{
    ask(Query::property(accessibleInterface, u"ChildCount"_s), context, propertyToInteger, answer);
}

void AccessibleObject::askChildren(QObject* context,
                                   const Answer<QList<AccessibleReference>>& answer) const
{
    ask({accessibleInterface, u"GetChildren"_s, {}, u"a(so)"_s}, context, toReferences, answer);
}

void AccessibleObject::askExtents(QObject* context, const Answer<QRect>& answer) const
{
    ask({componentInterface, u"GetExtents"_s, {screenCoordinates}, u"(iiii)"_s}, context,
        structureToRectangle, answer);
}

void AccessibleObject::askToolkitName(QObject* context, const Answer<QString>& answer) const
{
    ask(Query::property(u"org.a11y.atspi.Application"_s, u"ToolkitName"_s), context, propertyToText,
        answer);
}

void AccessibleObject::askCaretOffset(QObject* context, const Answer<int>& answer) const
{
    ask(Query::property(textInterface, u"CaretOffset"_s), context, propertyToInteger, answer);
}

void AccessibleObject::askCharacterCount(QObject* context, const Answer<int>& answer) const
{
    ask(Query::property(textInterface, u"CharacterCount"_s), context, propertyToInteger, answer);
}

void AccessibleObject::askSelection(QObject* context, const Answer<TextRange>& answer) const
{
    ask({textInterface, u"GetSelection"_s, {0}, u"ii"_s}, context, toRange, answer);
}

void AccessibleObject::askText(TextRange range, QObject* context,
                               const Answer<QString>& answer) const
{
    ask({textInterface, u"GetText"_s, {range.start, range.end}, u"s"_s}, context, toText, answer);
}

void AccessibleObject::askCharacterExtents(int offset, QObject* context,
                                           const Answer<QRect>& answer) const
{
    ask({textInterface, u"GetCharacterExtents"_s, {offset, screenCoordinates}, u"iiii"_s}, context,
        toRectangle, answer);
}

template <typename T, typename Convert>
void AccessibleObject::ask(const Query& query, QObject* context, Convert convert,
                           const Answer<T>& answer) const
{
    send(query, context, [convert, answer](const std::optional<QVariantList>& reply) {
        answer(reply ? std::optional<T>(convert(*reply)) : std::nullopt);
    });
}

void AccessibleObject::send(const Query& query, QObject* context, Answer<QVariantList> answer) const
{
    auto request = QDBusMessage::createMethodCall(m_reference.service, m_reference.path,
                                                  query.interface, query.method);
    request.setArguments(query.arguments);
    const auto call = m_bus.asyncCall(request, static_cast<int>(timeout.count()));
    auto* watcher = new QDBusPendingCallWatcher(call, context);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, context,
                     [watcher, expected = query.replySignature, answer = std::move(answer)] {
                         watcher->deleteLater();
                         const QDBusMessage reply = watcher->reply();
                         const bool isExpected = reply.type() == QDBusMessage::ReplyMessage &&
                                                 reply.signature() == expected;
                         answer(isExpected ? std::optional(reply.arguments()) : std::nullopt);
                     });
}

} // namespace driftbox
