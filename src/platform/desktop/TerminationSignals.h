#pragma once

#include <array>
#include <vector>

#include <QtCore/QObject>
#include <QtCore/QSocketNotifier>

namespace driftbox {

/// Catches the signals with which a session or a terminal asks the program to terminate, so that it
/// can shut down cleanly. Only the first signal is caught: a second one terminates the process at
/// once, as by default. Signals that were ignored when the program was started stay ignored. Only
/// one instance may exist at a time; main thread only.
class TerminationSignals final : public QObject
{
    Q_OBJECT

public:
    explicit TerminationSignals(QObject* parent = nullptr);
    /// Restores the signals' default actions.
    ~TerminationSignals() override;

Q_SIGNALS:
    /// Emitted from the event loop.
    void received();

private:
    struct Pipe
    {
        Pipe();
        ~Pipe();
        Q_DISABLE_COPY_MOVE(Pipe)

        std::array<int, 2> ends{-1, -1}; ///< the read end and the write end
    };

    Pipe m_pipe;
    QSocketNotifier m_notifier;
    std::vector<int> m_handledSignals;
};

} // namespace driftbox
