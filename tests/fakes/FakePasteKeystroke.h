#pragma once

#include "platform/PasteKeystroke.h"

#include <vector>

namespace driftbox {

/// Records the applications that the keystroke was sent to, in order.
class FakePasteKeystroke final : public PasteKeystroke
{
public:
    void send(std::shared_ptr<RunningApplication> target) override
    {
        targets.push_back(std::move(target));
    }

    std::vector<std::shared_ptr<RunningApplication>> targets;
};

} // namespace driftbox
