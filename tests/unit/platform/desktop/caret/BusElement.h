#pragma once

#include <QtCore/QString>
#include <QtDBus/QDBusArgument>
#include <QtDBus/QDBusObjectPath>

namespace driftbox {

/// An element of an application, as the accessibility bus spells it.
struct BusElement
{
    QString service;
    QDBusObjectPath path;
};

inline QDBusArgument& operator<<(QDBusArgument& argument, const BusElement& element)
{
    argument.beginStructure();
    argument << element.service << element.path;
    argument.endStructure();
    return argument;
}

inline const QDBusArgument& operator>>(const QDBusArgument& argument, BusElement& element)
{
    argument.beginStructure();
    argument >> element.service >> element.path;
    argument.endStructure();
    return argument;
}

} // namespace driftbox
