#pragma once

#include "platform/Appearance.h"

#include <QtCore/QObject>
#include <QtGui/QColor>

namespace driftbox {

/// Gives the application its widget style, its font and, whenever the desktop turns light or dark,
/// its palette. Needs a QApplication.
class ThemeFollower : public QObject
{
    Q_OBJECT

public:
    /// `appearance` must outlive this.
    explicit ThemeFollower(const Appearance& appearance, QObject* parent = nullptr);

private:
    void apply(ColorScheme scheme) const;

    QColor m_desktopAccent; ///< invalid when the desktop has none
};

} // namespace driftbox
