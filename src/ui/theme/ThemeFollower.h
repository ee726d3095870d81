#pragma once

#include "platform/Appearance.h"

#include <optional>

#include <QtCore/QObject>
#include <QtGui/QColor>

namespace driftbox {

/// Sets the application's style, font and palette, and updates the palette when the desktop's color
/// scheme or accent color changes. Needs a QApplication.
class ThemeFollower : public QObject
{
    Q_OBJECT

public:
    /// `appearance` must outlive this.
    explicit ThemeFollower(const Appearance& appearance, QObject* parent = nullptr);

private:
    void apply() const;

    const Appearance& m_appearance;
    std::optional<QColor> m_themeAccent; ///< the accent color of Qt's platform theme
};

} // namespace driftbox
