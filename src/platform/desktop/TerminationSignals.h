#pragma once

#include <array>
#include <vector>

#include <QtCore/QObject>
#include <QtCore/QSocketNotifier>

namespace driftbox {

/// Hears the signals by which a session or a terminal asks the program to end, so that it can end
/// in order. Only the first counts: after it they end the process at once, as they do without this.
/// Those that the program was started to ignore stay ignored. One at a time; main thread only.
class TerminationSignals final : public QObject
{
    Q_OBJECT

public:
    explicit TerminationSignals(QObject* parent = nullptr);
    /// Gives the signals their usual effect back.
    ~TerminationSignals() override;

Q_SIGNALS:
    /// From the event loop.
    void received();

private:
    struct Pipe
    {
        Pipe();
        ~Pipe();
        Pipe(const Pipe&) = delete;
        Pipe& operator=(const Pipe&) = delete;

        std::array<int, 2> ends{-1, -1}; ///< read from, written to
    };

    Pipe m_pipe;
    QSocketNotifier m_notifier;
    std::vector<int> m_heard;
};

} // namespace driftbox
