#pragma once

#include <cstdlib>
#include <memory>

namespace driftbox {

/// Owns memory allocated by XCB.
template <typename T>
[[nodiscard]] std::unique_ptr<T, decltype(&std::free)> owned(T* reply)
{
    return {reply, &std::free};
}

} // namespace driftbox
