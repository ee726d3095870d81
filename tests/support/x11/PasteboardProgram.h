#pragma once

#include "fakes/FakeClock.h"
#include "platform/x11/connection/X11Connection.h"
#include "platform/x11/selection/X11Pasteboard.h"

#include <memory>

namespace driftbox {

/// The pasteboard part of the program, with timeouts controlled by the test.
class PasteboardProgram
{
public:
    explicit PasteboardProgram(TaskRunner& runner);

    std::unique_ptr<X11Connection> connection;
    FakeClock clock;
    X11Pasteboard pasteboard;
};

[[nodiscard]] PasteboardContent textOnly(const QString& text);

} // namespace driftbox
