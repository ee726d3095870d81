#pragma once

#include "platform/Screens.h"

namespace driftbox {

/// The screens as the toolkit knows them. Main thread only, with an application object.
class QtScreens final : public Screens
{
public:
    using Screens::Screens;

    [[nodiscard]] std::vector<Screen> screens() const override;
    [[nodiscard]] QPointF mouseLocation() const override;
};

} // namespace driftbox
