#include "bench/BenchHistory.h"
#include "bench/Benches.h"
#include "platform/x11/connection/X11Connection.h"
#include "platform/x11/selection/X11Pasteboard.h"

#include <algorithm>

#include <QtCore/QAbstractEventDispatcher>
#include <QtCore/QElapsedTimer>
#include <QtCore/QEventLoop>
#include <QtCore/QTimer>

using namespace Qt::StringLiterals;

namespace driftbox::bench {

namespace {

constexpr int screenshotBenchTimeoutMs = 30'000; // ms

/// Measures the maximum time that the main thread is busy between two waits for events.
class BusyTimeMonitor : public QObject
{
public:
    BusyTimeMonitor()
    {
        auto* dispatcher = QAbstractEventDispatcher::instance();
        connect(dispatcher, &QAbstractEventDispatcher::awake, this, [this] { m_timer.start(); });
        connect(dispatcher, &QAbstractEventDispatcher::aboutToBlock, this, [this] {
            if (m_timer.isValid())
                m_max = std::max(m_max, static_cast<double>(m_timer.nsecsElapsed()) / 1e6);
        });
    }

    [[nodiscard]] double max() const { return m_max; }

private:
    QElapsedTimer m_timer;
    double m_max = 0;
};

} // namespace

Figures screenshot()
{
    BenchMachine machine;
    const auto connection = X11Connection::open();
    if (!connection)
        qFatal("The X server cannot be reached");
    X11Pasteboard pasteboard(*connection, machine.clock, machine.tasks);
    BenchHistory history{machine, pasteboard};
    history.monitor.start();

    QEventLoop loop;
    QElapsedTimer sinceReady;
    double captured = 0;
    QObject::connect(&history.viewModel, &ClipboardViewModel::itemsChanged, &loop, [&] {
        captured = static_cast<double>(sinceReady.nsecsElapsed()) / 1e6;
        (void)history.viewModel.image(history.viewModel.items().front());
    });
    QObject::connect(&history.viewModel, &ClipboardViewModel::imageChanged, &loop,
                     &QEventLoop::quit);
    QTimer::singleShot(screenshotBenchTimeoutMs, &loop, [] { qFatal("No picture was captured"); });

    // Measure only what happens after startup.
    std::optional<BusyTimeMonitor> monitor;
    QTimer::singleShot(0, &loop, [&] {
        monitor.emplace();
        sinceReady.start();
        std::puts("ready");
        std::fflush(stdout);
    });
    loop.exec();
    return {{u"screenshot_blocked_max"_s, monitor->max()},
            {u"screenshot_captured_after"_s, captured}};
}

} // namespace driftbox::bench
