#pragma once

#include "unit/platform/desktop/caret/BusElement.h"

#include <atomic>

#include <QtCore/QRectF>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusMetaType>
#include <QtDBus/QDBusObjectPath>
#include <QtDBus/QDBusVirtualObject>

namespace driftbox {

/// An application on the accessibility bus: its active window holds a text of two paragraphs, one
/// of which has the focus, and is slow to find the caret and the characters. For a while
/// after a request it reports no position for them.
class SlowEditor final : public QDBusVirtualObject
{
public:
    static constexpr QRectF place{420, 240, 0, 18}; ///< of the caret, behind the only character

    explicit SlowEditor(const QString& accessibilityAddress)
        : m_bus(QDBusConnection::connectToBus(accessibilityAddress, QStringLiteral("slow editor")))
    {
        qDBusRegisterMetaType<BusElement>();
        qDBusRegisterMetaType<QList<BusElement>>();
        m_bus.registerVirtualObject(QStringLiteral("/"), this, QDBusConnection::SubPath);
        auto arrival = QDBusMessage::createMethodCall(
            QStringLiteral("org.a11y.atspi.Registry"), application(),
            QStringLiteral("org.a11y.atspi.Socket"), QStringLiteral("Embed"));
        arrival << QVariant::fromValue(element(application()));
        m_bus.call(arrival);
    }
    ~SlowEditor() override { QDBusConnection::disconnectFromBus(m_bus.name()); }
    SlowEditor(const SlowEditor&) = delete;
    SlowEditor& operator=(const SlowEditor&) = delete;

    /// The next requests for a character's rectangle fail.
    void forgetPlaces(int questions) { m_nowhere = questions; }

    /// The next requests for the caret fail, too.
    void forgetCaret(int questions) { m_noCaret = questions; }

    void focusNextParagraph() { m_isNextFocused = true; }
    void setWindowActive(bool active) { m_windowIsActive = active; }

    /// How many characters the text reports.
    void setChildCount(int count) { m_childCount = count; }

    /// How often the text's states and its children were requested.
    int stateQuestions() const { return m_stateQuestions; }
    int childrenQuestions() const { return m_childrenQuestions; }

    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override
    {
        return connection.send(message.createReply(answer(message)));
    }
    QString introspect(const QString&) const override { return {}; }

private:
    static QString application() { return QStringLiteral("/org/a11y/atspi/accessible/root"); }
    static QString window() { return QStringLiteral("/window"); }
    static QString text() { return QStringLiteral("/text"); }
    static QString paragraph() { return QStringLiteral("/paragraph"); }
    static QString nextParagraph() { return QStringLiteral("/next"); }

    BusElement element(const QString& path) const
    {
        return {m_bus.baseService(), QDBusObjectPath(path)};
    }

    QList<BusElement> childrenOf(const QString& path) const
    {
        if (path == application())
            return {element(window())};
        if (path == window())
            return {element(text())};
        if (path == text())
            return {element(paragraph()), element(nextParagraph())};
        return {};
    }

    uint statesOf(const QString& path) const
    {
        constexpr uint active = 1U << 1;
        constexpr uint editable = 1U << 7;
        constexpr uint focused = 1U << 12;
        constexpr uint showing = 1U << 25;
        constexpr uint managesDescendants = 1U << 31;
        if (path == window())
            return showing | (m_windowIsActive ? active : 0);
        if (path == text())
            return showing | managesDescendants;
        return showing | editable |
               (path == (m_isNextFocused ? nextParagraph() : paragraph()) ? focused : 0);
    }

    QVariant property(const QString& name)
    {
        if (name == u"Parent")
            return QVariant::fromValue(element(text()));
        if (name == u"ChildCount")
            return m_childCount.load();
        if (name == u"CaretOffset" && --m_noCaret >= 0)
            return -1;
        return 1; // the caret's offset, or the number of characters
    }

    QVariantList answer(const QDBusMessage& question)
    {
        const QString method = question.member();
        const bool isOfText = question.path() == text();
        if (method == u"GetChildren") {
            m_childrenQuestions += isOfText;
            return {QVariant::fromValue(childrenOf(question.path()))};
        }
        if (method == u"GetState") {
            m_stateQuestions += isOfText;
            return {QVariant::fromValue(QList<uint>{statesOf(question.path()), 0})};
        }
        if (method == u"Get") {
            const QVariant value = property(question.arguments().at(1).toString());
            return {QVariant::fromValue(QDBusVariant(value))};
        }
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
    // The bus library asks in a thread of its own.
    std::atomic<bool> m_windowIsActive = true;
    std::atomic<bool> m_isNextFocused = false;
    std::atomic<int> m_childCount = 2;
    std::atomic<int> m_stateQuestions = 0;
    std::atomic<int> m_childrenQuestions = 0;
    std::atomic<int> m_nowhere = 0;
    std::atomic<int> m_noCaret = 0;
};

} // namespace driftbox
