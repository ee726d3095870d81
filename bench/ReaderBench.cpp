#include "app/X11Desktop.h"
#include "bench/BenchHistory.h"
#include "bench/Benches.h"
#include "bench/Timing.h"
#include "markdown/MarkdownReaderViewModel.h"
#include "markdown/view/MarkdownEditor.h"
#include "platform/FileSystem.h"

#include <algorithm>
#include <vector>

#include <QtCore/QElapsedTimer>
#include <QtCore/QTemporaryDir>
#include <QtGui/QKeyEvent>
#include <QtGui/QTextDocument>
#include <QtWidgets/QApplication>

using namespace Qt::StringLiterals;

namespace driftbox::bench {

namespace {

constexpr qsizetype documentSize = 1'000'000;
constexpr int paragraphLength = 400;
constexpr int readerBenchKeystrokes = 40;
constexpr QSize windowSize{780, 600};

QByteArray document()
{
    QByteArray text;
    for (int number = 0; text.size() < documentSize; ++number)
        text += words(number, paragraphLength).toUtf8() + "\n\n";
    return text;
}

double keystroke(MarkdownEditor& editor)
{
    QElapsedTimer timer;
    timer.start();
    QKeyEvent press(QEvent::KeyPress, Qt::Key_X, Qt::NoModifier, u"x"_s);
    QApplication::sendEvent(&editor, &press);
    QApplication::processEvents();
    editor.repaint();
    return milliseconds(timer);
}

} // namespace

Figures reader()
{
    const auto desktop = X11Desktop::open();
    Desktop services = desktop->services();
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"doc.md"_s);
    if (const auto written = services.fileSystem.writeAtomically(path, document()); !written)
        qFatal("%s", qUtf8Printable(written.error().message));

    MarkdownReaderViewModel viewModel(QUrl::fromLocalFile(path), services.fileSystem);
    viewModel.load();
    QElapsedTimer timer;
    timer.start();
    MarkdownEditor editor(viewModel, services.pasteboard, services.selectedText, nullptr);
    editor.resize(windowSize);
    editor.show();
    QApplication::processEvents();
    const double opened = milliseconds(timer);

    std::vector<double> durations;
    for (const auto operation : {QTextCursor::Start, QTextCursor::End}) {
        editor.moveCursor(operation);
        QApplication::processEvents();
        for (int i = 0; i < readerBenchKeystrokes; ++i)
            durations.push_back(keystroke(editor));
    }
    std::ranges::sort(durations);
    return {{u"reader_editor_opened"_s, opened},
            {u"reader_keystroke_median"_s, durations[durations.size() / 2]},
            {u"reader_keystroke_worst"_s, durations.back()}};
}

} // namespace driftbox::bench
