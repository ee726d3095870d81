#include "platform/desktop/FocusTracker.h"

#include "platform/desktop/AccessibilityBus.h"

#include <QtDBus/QDBusPendingCall>

using namespace Qt::StringLiterals;

namespace driftbox {

namespace {

const QString registryService = u"org.a11y.atspi.Registry"_s;

} // namespace

FocusTracker::FocusTracker(AccessibilityBus& bus, QObject* parent)
    : QObject(parent)
    , m_bus(bus)
{
    m_registry.setWatchMode(QDBusServiceWatcher::WatchForRegistration);
    connect(&m_registry, &QDBusServiceWatcher::serviceRegistered, this,
            &FocusTracker::registerForEvents);
    connect(&bus, &AccessibilityBus::connected, this, &FocusTracker::listen);
    connect(&bus, &AccessibilityBus::disconnected, this, [this] { m_focused.reset(); });
    if (bus.connection().isConnected())
        listen();
}

void FocusTracker::listen()
{
    QDBusConnection connection = m_bus.connection();
    // The bus compares the first argument, so that no other change of state arrives here.
    connection.connect(QString(), QString(), u"org.a11y.atspi.Event.Object"_s, u"StateChanged"_s,
                       {u"focused"_s}, QString(), this, SLOT(noteFocusChange(QDBusMessage)));
    m_registry.setConnection(connection);
    m_registry.setWatchedServices({registryService});
    registerForEvents();
}

// Applications ask the registry whether somebody wants an event before they send it.
void FocusTracker::registerForEvents()
{
    auto request = QDBusMessage::createMethodCall(registryService, u"/org/a11y/atspi/registry"_s,
                                                  registryService, u"RegisterEvent"_s);
    request << u"object:state-changed:focused"_s;
    m_bus.connection().asyncCall(request);
}

void FocusTracker::noteFocusChange(const QDBusMessage& signal)
{
    const AccessibleReference element{signal.service(), signal.path()};
    const bool hasFocus = signal.arguments().value(1).toInt() != 0;
    if (hasFocus)
        m_focused = element;
    else if (m_focused == element)
        m_focused.reset();
}

} // namespace driftbox
