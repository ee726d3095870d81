#include "platform/desktop/ToolkitAccessibility.h"

#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusPendingCall>
#include <QtDBus/QDBusVariant>

using namespace Qt::StringLiterals;

namespace driftbox {

namespace {
const QString launcherService = u"org.a11y.Bus"_s;
}

ToolkitAccessibility::ToolkitAccessibility(const QDBusConnection& session, QObject* parent)
    : QObject(parent)
    , m_session(session)
    , m_launcher(launcherService, session, QDBusServiceWatcher::WatchForRegistration)
{
    connect(&m_launcher, &QDBusServiceWatcher::serviceRegistered, this,
            &ToolkitAccessibility::switchOn);
    switchOn();
}

void ToolkitAccessibility::switchOn()
{
    auto request = QDBusMessage::createMethodCall(launcherService, u"/org/a11y/bus"_s,
                                                  u"org.freedesktop.DBus.Properties"_s, u"Set"_s);
    request << u"org.a11y.Status"_s << u"IsEnabled"_s << QVariant::fromValue(QDBusVariant(true));
    m_session.asyncCall(request);
}

} // namespace driftbox
