#include "bench/BenchHistory.h"
#include "bench/Benches.h"

#include <algorithm>

#include <QtCore/QElapsedTimer>
#include <QtWidgets/QApplication>

using namespace Qt::StringLiterals;

namespace driftbox::bench {

namespace {

constexpr int entries = 200;
constexpr int captures = 50;
constexpr int length = 4'000;

} // namespace

Figures capture()
{
    BenchMachine machine;
    machine.settings.setClipboardCapacity(entries);
    machine.writeManifest(textItems(entries, length));

    BenchPasteboard pasteboard;
    BenchHistory history{machine, pasteboard};
    std::vector<double> taken;
    for (int index = 0; index < captures; ++index) {
        pasteboard.write({.text = words(entries + index, length)});
        QElapsedTimer timer;
        timer.start();
        history.monitor.tick();
        taken.push_back(static_cast<double>(timer.nsecsElapsed()) / 1e6);
        QApplication::processEvents();
    }
    if (history.store.allItems().size() != entries)
        qFatal("The captures did not arrive");
    std::ranges::sort(taken);
    return {{u"capture_median"_s, taken[taken.size() / 2]}, {u"capture_worst"_s, taken.back()}};
}

} // namespace driftbox::bench
