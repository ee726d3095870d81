#include "platform/desktop/DBusInstanceLink.h"

#include "platform/desktop/ApplicationAdaptor.h"

#include <QtCore/QLoggingCategory>
#include <QtDBus/QDBusConnectionInterface>
#include <QtDBus/QDBusMessage>

using namespace Qt::StringLiterals;

namespace driftbox {

namespace {

Q_LOGGING_CATEGORY(dbusInstanceLinkLog, "DBusInstanceLink")

const QString busName = u"app.driftbox"_s;
const QString objectPath = u"/app/driftbox"_s;
constexpr int firstInstanceTimeoutMs = 500; // a first instance that hangs must not block the second

QDBusMessage applicationCall(const QString& method)
{
    return QDBusMessage::createMethodCall(busName, objectPath, u"org.freedesktop.Application"_s,
                                          method);
}

} // namespace

DBusInstanceLink::DBusInstanceLink(const QDBusConnection& sessionBus, const QString& runtimeFolder,
                                   QObject* parent)
    : InstanceLink(parent)
    , m_bus(sessionBus)
    , m_lock(runtimeFolder + u"/driftbox.lock"_s)
{
    m_lock.setStaleLockTime(0); // a lock is stale only when its process has ended
    new ApplicationAdaptor(*this);
}

DBusInstanceLink::~DBusInstanceLink() = default;

InstanceLink::Claim DBusInstanceLink::claim(const QList<QUrl>& documents)
{
    if (!m_bus.isConnected())
        return claimByLockFile();

    // Calls can arrive as soon as the name is registered, so the object must exist first.
    m_bus.registerObject(objectPath, this);
    const auto reply = m_bus.interface()->registerService(busName);
    if (reply.isValid() && reply.value() == QDBusConnectionInterface::ServiceRegistered)
        return Claim::first;
    m_bus.unregisterObject(objectPath);
    handOver(documents);
    return Claim::handedOver;
}

InstanceLink::Claim DBusInstanceLink::claimByLockFile()
{
    if (m_lock.tryLock() || m_lock.error() != QLockFile::LockFailedError)
        return Claim::first;
    qCWarning(dbusInstanceLinkLog).noquote()
        << u"Already running; without a session bus nothing is handed over"_s;
    return Claim::handedOver;
}

void DBusInstanceLink::handOver(const QList<QUrl>& documents)
{
    QDBusMessage call = applicationCall(documents.isEmpty() ? u"Activate"_s : u"Open"_s);
    if (!documents.isEmpty())
        call << QUrl::toStringList(documents, QUrl::FullyEncoded);
    call << QVariantMap();
    const QDBusMessage answer = m_bus.call(call, QDBus::Block, firstInstanceTimeoutMs);
    if (answer.type() == QDBusMessage::ErrorMessage) {
        qCCritical(dbusInstanceLinkLog).noquote()
            << u"The running program does not answer: %1"_s.arg(answer.errorMessage());
    }
}

} // namespace driftbox
