#pragma once

#include "platform/StatusArea.h"

namespace driftbox {

/// A place for symbols that is there when a test says so.
class FakeStatusArea final : public StatusArea
{
public:
    using StatusArea::StatusArea;

    void watch() override { isWatched = true; }

    using StatusArea::setAvailable;

    bool isWatched = false;
};

} // namespace driftbox
