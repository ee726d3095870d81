#pragma once

#include <optional>

#include <QtCore/QObject>
#include <QtGui/QColor>

namespace driftbox {

enum class ColorScheme { light, dark };

/// Whether the desktop is light or dark and which color it marks things with, while running too.
/// Main thread only.
class Appearance : public QObject
{
    Q_OBJECT

public:
    [[nodiscard]] virtual ColorScheme colorScheme() const = 0;
    /// The color that the user has chosen for what is selected; none where the desktop has none.
    [[nodiscard]] virtual std::optional<QColor> accentColor() const = 0;

Q_SIGNALS:
    void colorSchemeChanged(ColorScheme scheme);
    void accentColorChanged();

protected:
    using QObject::QObject;
};

} // namespace driftbox
