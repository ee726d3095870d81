#pragma once

#include "platform/FileDescriptor.h"
#include "platform/selection/OfferedContent.h"

#include <functional>
#include <memory>

#include <QtCore/QByteArray>
#include <QtCore/QObject>
#include <QtCore/QSocketNotifier>
#include <QtCore/QTimer>

namespace driftbox {

/// Writes one format into the pipe of a program that pastes, as fast as that one reads; one that
/// stops reading for 10 s is given up. Belongs to the thread that makes it, which must have
/// SIGPIPE blocked or ignored.
class PipeWriter final : public QObject
{
public:
    /// `done` is called once, from the event loop, and may destroy the writer.
    PipeWriter(FileDescriptor pipe, std::unique_ptr<ByteStream> bytes, std::function<void()> done);

private:
    void writeMore();

    FileDescriptor m_pipe;
    std::unique_ptr<ByteStream> m_bytes;
    QByteArray m_pending; ///< taken from the stream, not written yet
    std::function<void()> m_done;
    QSocketNotifier m_notifier;
    QTimer m_stalled;
};

} // namespace driftbox
