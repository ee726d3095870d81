#pragma once

#include "clipboard/recognition/LineReader.h"

#include <functional>
#include <vector>

namespace driftbox {

/// A few threads that read lines, each with a reader of its own. Their priority is the usual one:
/// with a low one a few lines take more than the time limit while the machine is busy.
class ReaderThreads
{
public:
    using Task = std::function<void(LineReader& reader, size_t index)>;

    ReaderThreads();

    /// Calls `task` once for every index below `count`, on several threads at a time, and returns
    /// when all are done.
    void run(size_t count, const Task& task);

private:
    std::vector<LineReader> m_readers;
};

} // namespace driftbox
