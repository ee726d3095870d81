#pragma once

#include "platform/InstanceLink.h"

#include <functional>

#include <QtCore/QVariantMap>
#include <QtDBus/QDBusAbstractAdaptor>

namespace driftbox {

/// The program as the desktop's launchers and file managers speak to it. Owned by the link, whose
/// signals it emits.
class ApplicationAdaptor final : public QDBusAbstractAdaptor
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    explicit ApplicationAdaptor(InstanceLink& link);

public Q_SLOTS:
    void Activate(const QVariantMap& platformData);
    void Open(const QStringList& uris, const QVariantMap& platformData);
    /// The program has no actions besides being activated.
    void ActivateAction(const QString& name, const QVariantList& parameters,
                        const QVariantMap& platformData);

private:
    void later(const std::function<void()>& step);

    InstanceLink& m_link;
};

} // namespace driftbox
