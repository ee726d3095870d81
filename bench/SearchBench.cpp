#include "bench/BenchHistory.h"
#include "bench/Benches.h"
#include "clipboard/view/ClipboardSectionView.h"
#include "ui/controls/SearchField.h"

#include <algorithm>

#include <QtCore/QElapsedTimer>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QApplication>

using namespace Qt::StringLiterals;

namespace driftbox::bench {

namespace {

constexpr int searchBenchEntries = 10'000;
constexpr int searchBenchLength = 4'000;
constexpr QSize searchBenchPageSize{451, 592};

// From the key press until all events are processed, including painting.
double fieldKeystrokeMs(QWidget& field, QChar character)
{
    QElapsedTimer timer;
    timer.start();
    QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString(character));
    QApplication::sendEvent(&field, &press);
    QApplication::processEvents();
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

} // namespace

Figures search()
{
    BenchMachine machine;
    machine.writeManifest(textItems(searchBenchEntries, searchBenchLength));

    BenchPasteboard pasteboard;
    BenchHistory history{machine, pasteboard};
    ClipboardSectionView page(history.viewModel, machine.clock,
                              textExchange(pasteboard, history.pasteboardWriter), {}, nullptr);
    page.resize(searchBenchPageSize);
    page.show();
    QApplication::processEvents();
    auto* field = page.findChild<SearchField*>();
    if (!field)
        qFatal("The page has no search field");

    std::vector<double> durations;
    for (const QString& query : {u"leuchtturm 42"_s, u"no such words"_s, u"e"_s}) {
        for (const QChar character : query)
            durations.push_back(fieldKeystrokeMs(*field, character));
        history.viewModel.setQuery({});
        QApplication::processEvents();
    }
    std::ranges::sort(durations);
    return {{u"search_keystroke_median"_s, durations[durations.size() / 2]},
            {u"search_keystroke_worst"_s, durations.back()}};
}

} // namespace driftbox::bench
