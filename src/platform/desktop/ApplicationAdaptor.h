#pragma once

#include "platform/InstanceLink.h"

#include <functional>

#include <QtCore/QVariantMap>
#include <QtDBus/QDBusAbstractAdaptor>

namespace driftbox {

/// The D-Bus interface through which launchers and file managers activate the program. Owned by the
/// link, whose signals it emits.
class ApplicationAdaptor final : public QDBusAbstractAdaptor
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    explicit ApplicationAdaptor(InstanceLink& link);

public Q_SLOTS:
    void Activate(const QVariantMap& platformData);
    void Open(const QStringList& uris, const QVariantMap& platformData);
    /// The program has no actions: every action activates it.
    void ActivateAction(const QString& name, const QVariantList& parameters,
                        const QVariantMap& platformData);

private:
    void enqueue(const std::function<void()>& step);

    InstanceLink& m_link;
};

} // namespace driftbox
