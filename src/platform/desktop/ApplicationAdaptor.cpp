#include "platform/desktop/ApplicationAdaptor.h"

namespace driftbox {

ApplicationAdaptor::ApplicationAdaptor(InstanceLink& link)
    : QDBusAbstractAdaptor(&link)
    , m_link(link)
{
}

void ApplicationAdaptor::Activate(const QVariantMap& /*platformData*/)
{
    Q_EMIT m_link.activated();
}

void ApplicationAdaptor::Open(const QStringList& uris, const QVariantMap& /*platformData*/)
{
    Q_EMIT m_link.documentsOpened(QUrl::fromStringList(uris));
}

void ApplicationAdaptor::ActivateAction(const QString& /*name*/, const QVariantList& /*parameters*/,
                                        const QVariantMap& /*platformData*/)
{
    Q_EMIT m_link.activated();
}

} // namespace driftbox
