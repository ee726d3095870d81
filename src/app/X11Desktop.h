#pragma once

#include "app/Desktop.h"

#include <memory>

#include <QtCore/QtGlobal>

namespace driftbox {

/// Owns the services of an X11 session's desktop.
class X11Desktop
{
public:
    /// Uses the display that the toolkit's application object has opened. Null, and logged, when
    /// the X server cannot be used.
    [[nodiscard]] static std::unique_ptr<X11Desktop> open();
    ~X11Desktop();
    Q_DISABLE_COPY_MOVE(X11Desktop)

    /// Valid as long as this object.
    [[nodiscard]] Desktop services();

private:
    struct BackEnds;
    explicit X11Desktop(std::unique_ptr<BackEnds> backEnds);

    std::unique_ptr<BackEnds> m_backEnds;
};

} // namespace driftbox
