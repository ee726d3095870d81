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

/// The longest that the main thread did anything between two waits for events.
class HoldWatch : public QObject
{
public:
    HoldWatch()
    {
        auto* dispatcher = QAbstractEventDispatcher::instance();
        connect(dispatcher, &QAbstractEventDispatcher::awake, this, [this] { m_timer.start(); });
        connect(dispatcher, &QAbstractEventDispatcher::aboutToBlock, this, [this] {
            if (m_timer.isValid())
                m_longest = std::max(m_longest, static_cast<double>(m_timer.nsecsElapsed()) / 1e6);
        });
    }

    [[nodiscard]] double longest() const { return m_longest; }

private:
    QElapsedTimer m_timer;
    double m_longest = 0;
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

    // Only what comes after the start counts.
    std::optional<HoldWatch> watch;
    QTimer::singleShot(0, &loop, [&] {
        watch.emplace();
        sinceReady.start();
        std::puts("ready");
        std::fflush(stdout);
    });
    loop.exec();
    return {{u"screenshot_held_longest"_s, watch->longest()},
            {u"screenshot_captured_after"_s, captured}};
}

} // namespace driftbox::bench
