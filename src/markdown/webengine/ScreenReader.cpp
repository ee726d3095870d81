#include "markdown/webengine/ScreenReader.h"

#include <QtCore/QVariant>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusVariant>

using namespace Qt::StringLiterals;

namespace driftbox::ScreenReader {

namespace {

constexpr int replyTimeoutMs = 100;

} // namespace

bool isEnabled()
{
    auto request = QDBusMessage::createMethodCall(u"org.a11y.Bus"_s, u"/org/a11y/bus"_s,
                                                  u"org.freedesktop.DBus.Properties"_s, u"Get"_s);
    request << u"org.a11y.Status"_s << u"ScreenReaderEnabled"_s;
    request.setAutoStartService(false);
    const QDBusMessage reply =
        QDBusConnection::sessionBus().call(request, QDBus::Block, replyTimeoutMs);
    const QVariant value = reply.arguments().value(0);
    return value.value<QDBusVariant>().variant().toBool();
}

} // namespace driftbox::ScreenReader
