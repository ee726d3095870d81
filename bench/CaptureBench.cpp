#include "bench/BenchHistory.h"
#include "bench/Benches.h"

#include <algorithm>

#include <QtCore/QElapsedTimer>
#include <QtWidgets/QApplication>

using namespace Qt::StringLiterals;

namespace driftbox::bench {

namespace {

constexpr int captureBenchEntries = 200;
constexpr int captures = 50;
constexpr int captureBenchLength = 4'000;

} // namespace

Figures capture()
{
    BenchMachine machine;
    machine.settings.setClipboardCapacity(captureBenchEntries);
    machine.writeManifest(textItems(captureBenchEntries, captureBenchLength));

    BenchPasteboard pasteboard;
    BenchHistory history{machine, pasteboard};
    std::vector<double> durations;
    for (int index = 0; index < captures; ++index) {
        pasteboard.write({.text = words(captureBenchEntries + index, captureBenchLength)});
        QElapsedTimer timer;
        timer.start();
        history.monitor.tick();
        durations.push_back(static_cast<double>(timer.nsecsElapsed()) / 1e6);
        QApplication::processEvents();
    }
    if (history.store.allItems().size() != captureBenchEntries)
        qFatal("The captures did not arrive");
    std::ranges::sort(durations);
    return {{u"capture_median"_s, durations[durations.size() / 2]},
            {u"capture_worst"_s, durations.back()}};
}

} // namespace driftbox::bench
