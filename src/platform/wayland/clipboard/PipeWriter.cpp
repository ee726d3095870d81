#include "platform/wayland/clipboard/PipeWriter.h"

#include "platform/selection/ByteSizes.h"

#include <cerrno>
#include <chrono>
#include <utility>

#include <fcntl.h>
#include <unistd.h>

namespace driftbox {

namespace {

constexpr qsizetype portionSize = 64 * kibibyte; // what a pipe holds
constexpr std::chrono::seconds stallTimeout{10};

} // namespace

PipeWriter::PipeWriter(FileDescriptor pipe, std::unique_ptr<ByteStream> bytes,
                       std::function<void()> done)
    : m_pipe(std::move(pipe))
    , m_bytes(std::move(bytes))
    , m_done(std::move(done))
    , m_notifier(m_pipe.get(), QSocketNotifier::Write)
{
    fcntl(m_pipe.get(), F_SETFL, fcntl(m_pipe.get(), F_GETFL) | O_NONBLOCK);
    connect(&m_notifier, &QSocketNotifier::activated, this, &PipeWriter::writeMore);
    m_stalled.setSingleShot(true);
    m_stalled.callOnTimeout(this, [this] { std::exchange(m_done, nullptr)(); });
    m_stalled.start(stallTimeout);
}

void PipeWriter::writeMore()
{
    if (m_pending.isEmpty())
        m_pending = m_bytes->next(portionSize);
    const auto written = m_pending.isEmpty() ? 0
                                             : ::write(m_pipe.get(), m_pending.constData(),
                                                       static_cast<std::size_t>(m_pending.size()));
    if (written > 0) {
        m_pending.remove(0, written);
        m_stalled.start(stallTimeout);
        return;
    }
    if (written < 0 && (errno == EAGAIN || errno == EINTR))
        return;
    m_notifier.setEnabled(false);
    m_stalled.stop();
    const auto done = std::exchange(m_done, nullptr); // outlives this, which it may destroy
    done();
}

} // namespace driftbox
