#pragma once

#include "platform/Screens.h"

namespace driftbox {

/// Screens set by the test; initially one of 1440 x 900 points with a bar at the top.
class FakeScreens final : public Screens
{
    Q_OBJECT

public:
    using Screens::Screens;

    [[nodiscard]] std::vector<Screen> screens() const override { return list; }
    [[nodiscard]] QPointF mouseLocation() const override { return mouse; }

    std::vector<Screen> list = {
        {QRectF(0, 0, 1440, 900), QRectF(0, 0, 1440, 875), QRect(0, 0, 1440, 900), 1.0}};
    QPointF mouse = {720, 450};
};

} // namespace driftbox
