#include "platform/desktop/PortalAppearance.h"

#include <utility>

#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusPendingCallWatcher>
#include <QtDBus/QDBusPendingReply>
#include <QtGui/QGuiApplication>
#include <QtGui/QPalette>

using namespace Qt::StringLiterals;

namespace driftbox {

namespace {

const QString portalService = u"org.freedesktop.portal.Desktop"_s;
const QString portalPath = u"/org/freedesktop/portal/desktop"_s;
const QString settings = u"org.freedesktop.portal.Settings"_s;
const QString appearanceGroup = u"org.freedesktop.appearance"_s;
const QString schemeKey = u"color-scheme"_s;
const QString accentKey = u"accent-color"_s;

ColorScheme schemeOfPalette()
{
    const QPalette palette = QGuiApplication::palette();
    return palette.windowText().color().lightness() > palette.window().color().lightness()
               ? ColorScheme::dark
               : ColorScheme::light;
}

// Older portals wrap the value in another variant.
QVariant unwrapped(QVariant value)
{
    while (value.canConvert<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    return value;
}

} // namespace

PortalAppearance::PortalAppearance(const QDBusConnection& sessionBus, QObject* parent)
    : Appearance(parent)
    , m_bus(sessionBus)
    , m_portalWatcher(portalService, sessionBus, QDBusServiceWatcher::WatchForRegistration)
    , m_paletteScheme(schemeOfPalette())
    , m_scheme(m_paletteScheme)
{
    if (!m_bus.isConnected())
        return;
    qRegisterMetaType<QDBusVariant>(); // needed to find slots that take one
    m_bus.connect(portalService, portalPath, settings, u"SettingChanged"_s, this,
                  SLOT(settingChanged(QString, QString, QDBusVariant)));
    connect(&m_portalWatcher, &QDBusServiceWatcher::serviceRegistered, this,
            &PortalAppearance::requestAll);
    requestAll();
}

void PortalAppearance::requestAll()
{
    request(schemeKey);
    request(accentKey);
}

void PortalAppearance::request(const QString& key)
{
    QDBusMessage call =
        QDBusMessage::createMethodCall(portalService, portalPath, settings, u"Read"_s);
    call << appearanceGroup << key;
    const auto* answer = new QDBusPendingCallWatcher(m_bus.asyncCall(call), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this,
            [this, key](QDBusPendingCallWatcher* done) {
                const QDBusPendingReply<QDBusVariant> reply = *done;
                if (reply.isValid())
                    apply(key, reply.value().variant());
                done->deleteLater();
            });
}

void PortalAppearance::settingChanged(const QString& group, const QString& key,
                                      const QDBusVariant& value)
{
    if (group == appearanceGroup)
        apply(key, value.variant());
}

void PortalAppearance::apply(const QString& key, const QVariant& value)
{
    const QVariant bare = unwrapped(value);
    if (key == schemeKey)
        applyScheme(bare.toUInt());
    else if (key == accentKey && bare.canConvert<QDBusArgument>())
        applyAccent(bare.value<QDBusArgument>());
}

void PortalAppearance::applyScheme(uint preference)
{
    constexpr uint prefersDark = 1;
    constexpr uint prefersLight = 2;
    ColorScheme scheme = m_paletteScheme;
    if (preference == prefersDark)
        scheme = ColorScheme::dark;
    else if (preference == prefersLight)
        scheme = ColorScheme::light;
    if (std::exchange(m_scheme, scheme) != scheme)
        Q_EMIT colorSchemeChanged(scheme);
}

// Red, green and blue from 0 to 1; any other value means that the user has not chosen a color.
void PortalAppearance::applyAccent(const QDBusArgument& channels)
{
    if (channels.currentSignature() != u"(ddd)")
        return;
    double red = -1;
    double green = -1;
    double blue = -1;
    channels.beginStructure();
    channels >> red >> green >> blue;
    channels.endStructure();

    const auto isChannel = [](double value) { return value >= 0 && value <= 1; };
    std::optional<QColor> accent;
    if (isChannel(red) && isChannel(green) && isChannel(blue))
        accent = QColor::fromRgbF(float(red), float(green), float(blue));
    if (std::exchange(m_accent, accent) != accent)
        Q_EMIT accentColorChanged();
}

} // namespace driftbox
