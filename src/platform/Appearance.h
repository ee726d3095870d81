#pragma once

#include <optional>

#include <QtCore/QObject>
#include <QtGui/QColor>

namespace driftbox {

enum class ColorScheme { light, dark };

/// The desktop's color scheme and accent color, kept up to date while the program runs. Main thread
/// only.
class Appearance : public QObject
{
    Q_OBJECT

public:
    [[nodiscard]] virtual ColorScheme colorScheme() const = 0;
    /// The color that the user has chosen for selections; none where the desktop does not define
    /// one.
    [[nodiscard]] virtual std::optional<QColor> accentColor() const = 0;

Q_SIGNALS:
    void colorSchemeChanged(ColorScheme scheme);
    void accentColorChanged();

protected:
    using QObject::QObject;
};

} // namespace driftbox
