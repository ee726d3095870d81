#include "markdown/webengine/ScreenReader.h"

#include <QtCore/QVariant>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusVariant>

using namespace Qt::StringLiterals;

namespace driftbox::ScreenReader {

namespace {

constexpr int answerTimeoutMs = 100;

} // namespace

bool isEnabled()
{
    auto question = QDBusMessage::createMethodCall(u"org.a11y.Bus"_s, u"/org/a11y/bus"_s,
                                                   u"org.freedesktop.DBus.Properties"_s, u"Get"_s);
    question << u"org.a11y.Status"_s << u"ScreenReaderEnabled"_s;
    question.setAutoStartService(false);
    const QDBusMessage answer =
        QDBusConnection::sessionBus().call(question, QDBus::Block, answerTimeoutMs);
    const QVariant value = answer.arguments().value(0);
    return value.value<QDBusVariant>().variant().toBool();
}

} // namespace driftbox::ScreenReader
