#include "clipboard/recognition/ReaderThreads.h"

#include <algorithm>
#include <atomic>
#include <thread>

#include <omp.h>

namespace driftbox {

namespace {

constexpr unsigned maxThreads = 4;

} // namespace

ReaderThreads::ReaderThreads()
    : m_readers(std::clamp(std::thread::hardware_concurrency(), 1U, maxThreads))
{
}

void ReaderThreads::run(size_t count, const Task& task)
{
    std::atomic<size_t> next = 0;
    std::vector<std::jthread> threads;
    for (LineReader& reader : m_readers) {
        if (threads.size() == count)
            break;
        threads.emplace_back([&] {
            // For pictures as small as lines, Tesseract's own threads slow it down.
            omp_set_max_active_levels(0);
            for (size_t i = next++; i < count; i = next++)
                task(reader, i);
        });
    }
}

} // namespace driftbox
