#pragma once

#include <QtCore/QString>

/// What the services of assistive technology and their objects are called on D-Bus.
namespace driftbox::accessibility {

/// On the session bus: tells the address of the accessibility bus, and whether it is used.
inline const QString launcherService = QStringLiteral("org.a11y.Bus");
inline const QString launcherPath = QStringLiteral("/org/a11y/bus");

/// On the accessibility bus: has the applications as its children.
inline const QString registryService = QStringLiteral("org.a11y.atspi.Registry");
/// The object that stands for an application, and for the registry.
inline const QString applicationPath = QStringLiteral("/org/a11y/atspi/accessible/root");

} // namespace driftbox::accessibility
