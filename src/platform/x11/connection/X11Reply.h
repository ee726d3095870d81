#pragma once

#include <cstdlib>
#include <memory>

namespace driftbox {

struct X11Free
{
    void operator()(void* memory) const { std::free(memory); }
};

/// A reply, event or error of the X server, owned by the caller; null when there is none, for
/// example when the server answered with an error.
template <typename T>
using X11Reply = std::unique_ptr<T, X11Free>;

} // namespace driftbox
