#pragma once

namespace driftbox {

/// Releases the resident pages of the code and constants of this module and of the libraries loaded
/// with it. Pages that are used again come back from the page cache. Thread-safe.
///
/// Unloading the module is not an alternative: libraries with C++ templates cannot be unloaded.
void releaseLibraryPages();

} // namespace driftbox
