#pragma once

#include "platform/FileDescriptor.h"

#include <chrono>
#include <cstdint>
#include <functional>

#include <QtCore/QByteArrayList>
#include <QtCore/QObject>
#include <QtCore/QSocketNotifier>
#include <QtCore/QTimer>

namespace driftbox {

/// Reads what another program writes into a pipe until it closes its end. Belongs to the thread
/// that makes it. Destroying it gives the transfer up.
class PipeReader final : public QObject
{
public:
    enum class Outcome : std::uint8_t {
        complete,
        timedOut, ///< not complete within the deadline
        tooLarge,
        failed,
    };

    struct Result
    {
        Outcome outcome;
        QByteArrayList pieces; ///< the bytes, in order; empty unless complete
    };

    struct Limits
    {
        qsizetype size; ///< in bytes; more than that is not accepted
        std::chrono::milliseconds deadline;
    };

    /// `pipe` is the end for reading and does not block. `done` is called once, from the event
    /// loop, and may destroy the reader.
    PipeReader(FileDescriptor pipe, const Limits& limits, std::function<void(Result)> done);

private:
    void readAvailable();
    void finish(Outcome outcome);

    FileDescriptor m_pipe;
    const Limits m_limits;
    std::function<void(Result)> m_done;
    QSocketNotifier m_notifier;
    QTimer m_deadline;
    QByteArrayList m_pieces; ///< joining large ones is left to who needs them in one
    qsizetype m_size = 0;
};

} // namespace driftbox
