#include "platform/wayland/clipboard/PipeReader.h"

#include "platform/selection/ByteSizes.h"

#include <cerrno>
#include <utility>

#include <unistd.h>

namespace driftbox {

namespace {

constexpr qsizetype pieceSize = 64 * kibibyte; // what a pipe holds

} // namespace

PipeReader::PipeReader(FileDescriptor pipe, const Limits& limits, std::function<void(Result)> done)
    : m_pipe(std::move(pipe))
    , m_limits(limits)
    , m_done(std::move(done))
    , m_notifier(m_pipe.get(), QSocketNotifier::Read)
{
    connect(&m_notifier, &QSocketNotifier::activated, this, &PipeReader::readAvailable);
    m_deadline.setSingleShot(true);
    m_deadline.setTimerType(Qt::PreciseTimer);
    m_deadline.callOnTimeout(this, [this] { finish(Outcome::timedOut); });
    m_deadline.start(limits.deadline);
}

// One piece per turn of the event loop: a fast writer must not keep the others waiting.
void PipeReader::readAvailable()
{
    QByteArray piece(pieceSize, Qt::Uninitialized);
    const auto length = ::read(m_pipe.get(), piece.data(), static_cast<std::size_t>(pieceSize));
    if (length < 0) {
        if (errno != EAGAIN && errno != EINTR)
            finish(Outcome::failed);
        return;
    }
    if (length == 0)
        return finish(Outcome::complete);
    m_size += length;
    if (m_size > m_limits.size)
        return finish(Outcome::tooLarge);
    piece.truncate(length);
    if (length < pieceSize / 2)
        piece.squeeze();
    m_pieces.append(piece);
}

void PipeReader::finish(Outcome outcome)
{
    m_notifier.setEnabled(false);
    m_deadline.stop();
    const auto done = std::exchange(m_done, nullptr); // outlives this, which it may destroy
    Result result{outcome, {}};
    if (outcome == Outcome::complete)
        result.pieces = std::move(m_pieces);
    done(std::move(result));
}

} // namespace driftbox
