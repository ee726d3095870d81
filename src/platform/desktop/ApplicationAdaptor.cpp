#include "platform/desktop/ApplicationAdaptor.h"

namespace driftbox {

ApplicationAdaptor::ApplicationAdaptor(InstanceLink& link)
    : QDBusAbstractAdaptor(&link)
    , m_link(link)
{
}

void ApplicationAdaptor::Activate(const QVariantMap& /*platformData*/)
{
    enqueue([&link = m_link] { Q_EMIT link.activated(); });
}

void ApplicationAdaptor::Open(const QStringList& uris, const QVariantMap& /*platformData*/)
{
    enqueue([&link = m_link, uris] { Q_EMIT link.documentsOpened(QUrl::fromStringList(uris)); });
}

void ApplicationAdaptor::ActivateAction(const QString& /*name*/, const QVariantList& /*parameters*/,
                                        const QVariantMap& /*platformData*/)
{
    enqueue([&link = m_link] { Q_EMIT link.activated(); });
}

// The reply must not wait for the step: the second instance blocks on it.
void ApplicationAdaptor::enqueue(const std::function<void()>& step)
{
    QMetaObject::invokeMethod(&m_link, step, Qt::QueuedConnection);
}

} // namespace driftbox
