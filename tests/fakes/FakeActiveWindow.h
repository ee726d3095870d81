#pragma once

#include "platform/ActiveWindow.h"

namespace driftbox {

/// An active window with a frame set by the test.
class FakeActiveWindow final : public ActiveWindow
{
public:
    void deviceFrame(QObject* /*owner*/, Answer answer) override { answer(frame); }

    std::optional<QRect> frame;
};

} // namespace driftbox
