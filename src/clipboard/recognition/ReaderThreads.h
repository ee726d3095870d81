#pragma once

#include "clipboard/recognition/LineReader.h"

#include <functional>
#include <vector>

namespace driftbox {

/// A few threads that read lines, each with its own reader. They run at normal priority: at a low
/// one, a few lines would exceed the time limit while the machine is busy.
class ReaderThreads
{
public:
    using Task = std::function<void(LineReader& reader, size_t index)>;

    ReaderThreads();

    /// Calls `task` once for every index below `count`, concurrently, and blocks until all calls
    /// have returned.
    void run(size_t count, const Task& task);

private:
    std::vector<LineReader> m_readers;
};

} // namespace driftbox
