#pragma once

#include <QtCore/QObject>

namespace driftbox {

enum class ColorScheme { light, dark };

/// Whether the desktop is light or dark, while running too. Main thread only.
class Appearance : public QObject
{
    Q_OBJECT

public:
    [[nodiscard]] virtual ColorScheme colorScheme() const = 0;

Q_SIGNALS:
    void colorSchemeChanged(ColorScheme scheme);

protected:
    using QObject::QObject;
};

} // namespace driftbox
