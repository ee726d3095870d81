#pragma once

#include "platform/Appearance.h"

#include <optional>

#include <QtCore/QObject>
#include <QtGui/QColor>

namespace driftbox {

/// Gives the application its widget style, its font and, whenever the desktop turns light or dark
/// or changes its accent color, its palette. Needs a QApplication.
class ThemeFollower : public QObject
{
    Q_OBJECT

public:
    /// `appearance` must outlive this.
    explicit ThemeFollower(const Appearance& appearance, QObject* parent = nullptr);

private:
    void apply() const;

    const Appearance& m_appearance;
    std::optional<QColor> m_themeAccent; ///< what the toolkit knows of the desktop's
};

} // namespace driftbox
