#include "platform/desktop/PortalAppearance.h"
#include "support/SessionBus.h"
#include "support/main/TestMain.h"

#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusVirtualObject>
#include <QtGui/QGuiApplication>
#include <QtGui/QPalette>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

using namespace driftbox;
using namespace Qt::StringLiterals;

namespace {

const QString portalService = u"org.freedesktop.portal.Desktop"_s;
const QString portalPath = u"/org/freedesktop/portal/desktop"_s;
const QString settings = u"org.freedesktop.portal.Settings"_s;
const QString appearance = u"org.freedesktop.appearance"_s;
const QString scheme = u"color-scheme"_s;

enum Preference : uint { none, dark, light };

QPalette paletteOf(const QColor& window, const QColor& text)
{
    QPalette palette;
    palette.setColor(QPalette::Window, window);
    palette.setColor(QPalette::WindowText, text);
    return palette;
}

// A settings portal on the private bus.
class Portal final : public QDBusVirtualObject
{
public:
    explicit Portal(const QString& address)
        : m_bus(QDBusConnection::connectToBus(address, u"portal"_s))
    {
        m_bus.registerVirtualObject(portalPath, this);
        m_bus.registerService(portalService);
    }
    ~Portal() override { QDBusConnection::disconnectFromBus(u"portal"_s); }

    QString introspect(const QString& /*portalPath*/) const override { return {}; }

    bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override
    {
        ++reads;
        if (message.member() != u"Read" || isSilent)
            return isSilent;
        const QVariant value = values.value(message.arguments().at(1).toString());
        if (!value.isValid())
            return bus.send(message.createErrorReply(u"org.freedesktop.portal.Error.NotFound"_s,
                                                     u"Requested setting not found"_s));
        // The portal wraps what it answers twice.
        return bus.send(message.createReply(
            QVariant::fromValue(QDBusVariant(QVariant::fromValue(QDBusVariant(value))))));
    }

    void change(const QString& group, const QString& key, const QVariant& value)
    {
        auto signal = QDBusMessage::createSignal(portalPath, settings, u"SettingChanged"_s);
        signal << group << key << QVariant::fromValue(QDBusVariant(value));
        m_bus.send(signal);
    }

    QHash<QString, QVariant> values;
    bool isSilent = false; ///< never answers
    int reads = 0;

private:
    QDBusConnection m_bus;
};

} // namespace

class TestPortalAppearance : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_bus = std::make_unique<SessionBus>(SessionBus::Services::none);
        m_session = std::make_unique<QDBusConnection>(
            QDBusConnection::connectToBus(m_bus->address(), u"session"_s));
        QGuiApplication::setPalette(paletteOf(Qt::white, Qt::black));
    }
    void cleanup()
    {
        QDBusConnection::disconnectFromBus(u"session"_s);
        m_session.reset();
        m_bus.reset();
    }

    void paletteIsUsedWithoutABus()
    {
        const QDBusConnection nothing(u"no such connection"_s);
        QCOMPARE(PortalAppearance(nothing).colorScheme(), ColorScheme::light);
        QGuiApplication::setPalette(paletteOf(Qt::black, Qt::white));
        QCOMPARE(PortalAppearance(nothing).colorScheme(), ColorScheme::dark);
        QCOMPARE(PortalAppearance(nothing).accentColor(), std::nullopt);
    }

    void paletteIsUsedWithoutAPortal()
    {
        QGuiApplication::setPalette(paletteOf(Qt::black, Qt::white));
        const PortalAppearance desktop(*m_session);
        QCOMPARE(desktop.colorScheme(), ColorScheme::dark);
    }

    void portalTakesPrecedence_data()
    {
        QTest::addColumn<QVariant>("preference");
        QTest::addColumn<ColorScheme>("overLight");
        QTest::addColumn<ColorScheme>("overDark");
        const auto lightScheme = ColorScheme::light;
        const auto darkScheme = ColorScheme::dark;
        QTest::newRow("dark") << QVariant(uint(dark)) << darkScheme << darkScheme;
        QTest::newRow("light") << QVariant(uint(light)) << lightScheme << lightScheme;
        QTest::newRow("none") << QVariant(uint(none)) << lightScheme << darkScheme;
        QTest::newRow("unknown") << QVariant(7U) << lightScheme << darkScheme;
        QTest::newRow("not set") << QVariant() << lightScheme << darkScheme;
        QTest::newRow("garbage") << QVariant(u"dark"_s) << lightScheme << darkScheme;
    }
    void portalTakesPrecedence()
    {
        QFETCH(const QVariant, preference);
        QFETCH(const ColorScheme, overLight);
        QFETCH(const ColorScheme, overDark);
        Portal portal(m_bus->address());
        portal.values = {{scheme, preference}};

        const PortalAppearance onLight(*m_session);
        QTRY_VERIFY(portal.reads >= 2);
        QTRY_COMPARE(onLight.colorScheme(), overLight);
        QGuiApplication::setPalette(paletteOf(Qt::black, Qt::white));
        const PortalAppearance onDark(*m_session);
        QTRY_VERIFY(portal.reads >= 4);
        QTRY_COMPARE(onDark.colorScheme(), overDark);
    }

    void changesAreFollowedAndReportedOnce()
    {
        Portal portal(m_bus->address());
        portal.values = {{scheme, uint(light)}};
        const PortalAppearance desktop(*m_session);
        QTRY_VERIFY(portal.reads >= 2);
        QSignalSpy changed(&desktop, &Appearance::colorSchemeChanged);

        portal.change(appearance, scheme, uint(dark));
        QVERIFY(changed.wait());
        QCOMPARE(desktop.colorScheme(), ColorScheme::dark);
        QCOMPARE(changed.takeFirst().at(0).value<ColorScheme>(), ColorScheme::dark);

        portal.change(appearance, scheme, uint(dark));
        portal.change(u"org.gnome.desktop.interface"_s, scheme, uint(light));
        portal.change(appearance, u"contrast"_s, uint(light));
        portal.change(appearance, scheme, uint(light));
        QVERIFY(changed.wait());
        QCOMPARE(changed.count(), 1);
        QCOMPARE(desktop.colorScheme(), ColorScheme::light);
    }

    void latePortalIsAsked()
    {
        const PortalAppearance desktop(*m_session);
        QCOMPARE(desktop.colorScheme(), ColorScheme::light);
        Portal portal(m_bus->address());
        portal.values = {{scheme, uint(dark)}};
        QTRY_COMPARE(desktop.colorScheme(), ColorScheme::dark);
    }

    void silentPortalDoesNotBlock()
    {
        Portal portal(m_bus->address());
        portal.isSilent = true;
        QElapsedTimer elapsed;
        elapsed.start();
        const PortalAppearance desktop(*m_session);
        QCOMPARE(desktop.colorScheme(), ColorScheme::light);
        QVERIFY(elapsed.elapsed() < 1000); // a blocking call would wait 25 s
    }

    void signalsFromOtherSendersAreIgnored()
    {
        Portal portal(m_bus->address());
        portal.values = {{scheme, uint(light)}};
        const PortalAppearance desktop(*m_session);
        QTRY_VERIFY(portal.reads >= 2);

        auto stranger = QDBusConnection::connectToBus(m_bus->address(), u"stranger"_s);
        auto signal = QDBusMessage::createSignal(portalPath, settings, u"SettingChanged"_s);
        signal << appearance << scheme << QVariant::fromValue(QDBusVariant(QVariant(uint(dark))));
        QSignalSpy changed(&desktop, &Appearance::colorSchemeChanged);
        stranger.send(signal);
        QDBusConnection::disconnectFromBus(u"stranger"_s);
        QVERIFY(!changed.wait(100));
    }

private:
    std::unique_ptr<SessionBus> m_bus;
    std::unique_ptr<QDBusConnection> m_session;
};

DRIFTBOX_TEST(TestPortalAppearance, QGuiApplication)
#include "TestPortalAppearance.moc"
