#pragma once

#include "platform/StatusArea.h"

namespace driftbox {

/// A status area whose availability is set by the test.
class FakeStatusArea final : public StatusArea
{
public:
    using StatusArea::StatusArea;

    void watch() override { isWatched = true; }

    using StatusArea::setAvailable;

    bool isWatched = false;
};

} // namespace driftbox
