#pragma once

#include "platform/StandardWindows.h"

#include <vector>

#include <QtGui/QWindow>

namespace driftbox {

/// Shows windows without moving them, and records requests.
class FakeStandardWindows final : public StandardWindows
{
public:
    void center(QWindow& window) override { centered.push_back(&window); }
    void present(QWindow& window) override
    {
        presented.push_back(&window);
        window.show();
    }

    std::vector<QWindow*> centered;
    std::vector<QWindow*> presented;
};

} // namespace driftbox
