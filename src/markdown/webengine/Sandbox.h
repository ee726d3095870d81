#pragma once

/// The sandbox of the engine's processes.
namespace driftbox::Sandbox {

/// Whether the kernel features required by the sandbox are available to this user. Where they are
/// not, the engine would abort the whole program at startup.
[[nodiscard]] bool isPossible();

} // namespace driftbox::Sandbox
