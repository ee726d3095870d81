#pragma once

#include <QtCore/QString>

/// D-Bus names of the accessibility services and objects.
namespace driftbox::accessibility {

/// On the session bus: reports the address of the accessibility bus, and whether accessibility is
/// enabled.
inline const QString launcherService = QStringLiteral("org.a11y.Bus");
inline const QString launcherPath = QStringLiteral("/org/a11y/bus");

/// On the accessibility bus: the parent of all applications.
inline const QString registryService = QStringLiteral("org.a11y.atspi.Registry");
/// The root object of an application, and of the registry.
inline const QString applicationPath = QStringLiteral("/org/a11y/atspi/accessible/root");

} // namespace driftbox::accessibility
