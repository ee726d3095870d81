#pragma once

/// The sandbox in which the engine's processes read documents.
namespace driftbox::Sandbox {

/// Whether this user may use what the sandbox is made of on this machine. Where it cannot be had,
/// the engine would end the whole program when it starts.
[[nodiscard]] bool isPossible();

} // namespace driftbox::Sandbox
