#include "platform/desktop/caret/ToolkitAccessibility.h"

#include "platform/desktop/caret/AccessibilityNames.h"

#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusPendingCall>
#include <QtDBus/QDBusVariant>

using namespace Qt::StringLiterals;

namespace driftbox {

ToolkitAccessibility::ToolkitAccessibility(const QDBusConnection& session, QObject* parent)
    : QObject(parent)
    , m_session(session)
    , m_launcher(accessibility::launcherService, session, QDBusServiceWatcher::WatchForRegistration)
{
    connect(&m_launcher, &QDBusServiceWatcher::serviceRegistered, this,
            &ToolkitAccessibility::switchOn);
    switchOn();
}

void ToolkitAccessibility::switchOn()
{
    auto request =
        QDBusMessage::createMethodCall(accessibility::launcherService, accessibility::launcherPath,
                                       u"org.freedesktop.DBus.Properties"_s, u"Set"_s);
    request << u"org.a11y.Status"_s << u"IsEnabled"_s << QVariant::fromValue(QDBusVariant(true));
    m_session.asyncCall(request);
}

} // namespace driftbox
