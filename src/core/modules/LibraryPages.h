#pragma once

namespace driftbox {

/// Takes the code and constants of this module, and of the libraries that came with it, out of the
/// program's memory. The system fetches from its cache what is run again. Thread-safe.
///
/// Unloading the module would not do: libraries with C++ templates stay where they are.
void releaseLibraryPages();

} // namespace driftbox
