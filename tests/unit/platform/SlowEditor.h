#pragma once

#include <atomic>

#include <QtCore/QRectF>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusVirtualObject>

namespace driftbox {

/// A text with the focus, on the accessibility bus, that has to look up where its characters are:
/// for a while after it was asked it answers that they are nowhere.
class SlowEditor final : public QDBusVirtualObject
{
public:
    static constexpr QRectF place{420, 240, 0, 18}; ///< of the caret, behind the only character

    explicit SlowEditor(const QString& accessibilityAddress)
        : m_bus(QDBusConnection::connectToBus(accessibilityAddress, QStringLiteral("slow editor")))
    {
        m_bus.registerVirtualObject(path(), this);
    }
    ~SlowEditor() override { QDBusConnection::disconnectFromBus(m_bus.name()); }
    SlowEditor(const SlowEditor&) = delete;
    SlowEditor& operator=(const SlowEditor&) = delete;

    void takeFocus()
    {
        auto event = QDBusMessage::createSignal(
            path(), QStringLiteral("org.a11y.atspi.Event.Object"), QStringLiteral("StateChanged"));
        event << QStringLiteral("focused") << 1 << 0 << QVariant::fromValue(QDBusVariant(0))
              << QVariantMap();
        m_bus.send(event);
    }

    /// The next questions for a character's place are answered with nowhere.
    void forgetPlaces(int questions) { m_nowhere = questions; }

    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override
    {
        return connection.send(message.createReply(answer(message)));
    }
    QString introspect(const QString&) const override { return {}; }

private:
    static QString path() { return QStringLiteral("/editor"); }

    QVariantList answer(const QDBusMessage& question)
    {
        const QString method = question.member();
        if (method == u"GetState")
            return {QVariant::fromValue(QList<uint>{1U << 12 | 1U << 25, 0})};
        if (method == u"Get") // the caret's offset, or the number of characters
            return {QVariant::fromValue(QDBusVariant(1))};
        if (method == u"GetText")
            return {QStringLiteral("x")};
        if (method == u"GetSelection")
            return {0, 0};
        const bool isCharacter = question.arguments().value(0) == 0;
        if (method == u"GetCharacterExtents" && isCharacter && --m_nowhere < 0) {
            constexpr int width = 10;
            return {int(place.x()) - width, int(place.y()), width, int(place.height())};
        }
        return {0, 0, 0, 0};
    }

    QDBusConnection m_bus;
    std::atomic<int> m_nowhere = 0; ///< the bus library asks in a thread of its own
};

} // namespace driftbox
