#include "app/AppCoordinator.h"
#include "app/X11Desktop.h"
#include "bench/BenchHistory.h"
#include "bench/Benches.h"
#include "bench/Timing.h"
#include "core/AppConfig.h"
#include "core/JsonRecords.h"
#include "notes/NoteManager.h"
#include "notes/NotesManifest.h"
#include "notes/view/NoteEditor.h"
#include "ui/list/RowListView.h"

#include <algorithm>
#include <map>
#include <optional>

#include <QtCore/QElapsedTimer>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QScrollBar>

using namespace Qt::StringLiterals;

namespace driftbox::bench {

namespace {

constexpr int savedNotes = 200;
constexpr int savedLength = 4'000;
constexpr int longText = 100'000;
constexpr int lineLength = 80;
constexpr int listedNotes = 1'000;
constexpr int scrollDistance = 487; // points; most rows are new
constexpr int notesBenchKeystrokes = 40;
constexpr int openings = 20;
constexpr qint64 notesBenchTimeoutMs = 5'000; // ms
constexpr QSize notesBenchPageSize{451, 592};

StickyNote savedNote(const QString& text, int number)
{
    return {.textContent = text,
            .frame = {300, 300, 240, 200},
            .isSaved = true,
            .updatedAt = Instant::fromReferenceSeconds(700'000'000.0 - number)};
}

// Writes saved notes: a long paragraph, a long text in lines, and ordinary ones.
void writeManifest(FileSystem& files, int count)
{
    std::vector<QByteArray> notes;
    QString lines = words(1, longText);
    for (qsizetype end = lineLength; end < lines.size(); end += lineLength)
        lines[end] = u'\n';
    notes.push_back(NotesManifest::encode(savedNote(words(0, longText), 0)));
    notes.push_back(NotesManifest::encode(savedNote(lines, 1)));
    for (int number = 2; number < count; ++number)
        notes.push_back(NotesManifest::encode(savedNote(words(number, savedLength), number)));
    const QString folder = AppConfig::storage::defaultRootURL() + u"/notes"_s;
    files.createFolder(folder);
    const auto written =
        files.writeAtomically(folder + u"/manifest.json"_s, JsonRecords::join(notes));
    if (!written)
        qFatal("%s", qUtf8Printable(written.error().message));
}

NoteEditor* activeEditor()
{
    return qobject_cast<NoteEditor*>(QApplication::focusWidget());
}

// The editor of the note that `open` opens, once it has the focus.
template <typename Open>
NoteEditor& editorOf(Open open)
{
    NoteEditor* const before = activeEditor();
    open();
    QElapsedTimer timer;
    timer.start();
    while (!activeEditor() || activeEditor() == before) {
        QApplication::processEvents(QEventLoop::WaitForMoreEvents, 100);
        if (timer.elapsed() > notesBenchTimeoutMs)
            qFatal("No note has opened");
    }
    return *activeEditor();
}

// From the key press until all events are processed, including painting and writing.
double editorKeystrokeMs(NoteEditor& editor)
{
    QElapsedTimer timer;
    timer.start();
    QKeyEvent press(QEvent::KeyPress, Qt::Key_E, Qt::NoModifier, u"e"_s);
    QApplication::sendEvent(&editor, &press);
    QApplication::processEvents();
    return milliseconds(timer);
}

void addFigures(Figures& figures, const QString& name, std::vector<double> durations)
{
    std::ranges::sort(durations);
    figures[name + u"_median"_s] = durations[durations.size() / 2];
    figures[name + u"_worst"_s] = durations.back();
}

void measureTyping(Figures& figures, NoteManager& manager)
{
    const std::map<QString, size_t> indices = {
        {u"notes_paragraph"_s, 0}, {u"notes_lines"_s, 1}, {u"notes_keystroke"_s, savedNotes / 2}};
    for (const auto& [name, index] : indices) {
        const StickyNoteId id = manager.notes()[index].id;
        NoteEditor& editor = editorOf([&manager, id] { manager.focus(id); });
        std::vector<double> durations;
        for (int i = 0; i < notesBenchKeystrokes; ++i) {
            if (i == notesBenchKeystrokes / 2)
                editor.moveCursor(QTextCursor::Start);
            durations.push_back(editorKeystrokeMs(editor));
        }
        addFigures(figures, name, durations);
        manager.close(id);
        QApplication::processEvents();
    }
}

void measureOpening(Figures& figures, NoteManager& manager)
{
    std::vector<double> durations;
    for (int i = 0; i < openings; ++i) {
        QElapsedTimer timer;
        timer.start();
        (void)editorOf([&manager] { manager.newBlankNote(); });
        durations.push_back(milliseconds(timer));
        manager.close(manager.notes().front().id);
        QApplication::processEvents();
    }
    addFigures(figures, u"notes_opening"_s, durations);
}

// Scrolls the notes page from its beginning to its end.
void measureScrolling(Figures& figures, MagicPanelSection& section)
{
    QWidget window;
    QWidget* const page = section.makeRootView(&window);
    page->resize(notesBenchPageSize);
    window.resize(notesBenchPageSize);
    window.show();
    QApplication::processEvents();
    auto* const list = page->findChild<RowListView*>();
    if (!list)
        qFatal("The page has no list");
    std::vector<double> durations;
    for (int position = 0; position < list->verticalScrollBar()->maximum();
         position += scrollDistance) {
        QElapsedTimer timer;
        timer.start();
        list->verticalScrollBar()->setValue(position);
        QApplication::processEvents();
        durations.push_back(milliseconds(timer));
    }
    addFigures(figures, u"notes_scrolling"_s, durations);
}

/// The running program with saved notes.
struct RunningProgram
{
    explicit RunningProgram(int count)
    {
        if (!desktop)
            qFatal("There is no desktop");
        writeManifest(desktop->services().fileSystem, count);
        coordinator.emplace(desktop->services());
        coordinator->start();
        QApplication::processEvents();
        if (coordinator->noteManager().notes().size() != static_cast<size_t>(count))
            qFatal("The notes did not arrive");
    }

    std::unique_ptr<X11Desktop> desktop = X11Desktop::open();
    std::optional<AppCoordinator> coordinator;
};

} // namespace

Figures notes()
{
    RunningProgram running(savedNotes);
    NoteManager& manager = running.coordinator->noteManager();
    Figures figures;
    measureOpening(figures, manager);
    measureTyping(figures, manager);
    return figures;
}

Figures notesList()
{
    RunningProgram running(listedNotes);
    SectionRegistry& registry = running.coordinator->registry();
    registry.select(u"notes"_s);
    Figures figures;
    measureScrolling(figures, *registry.activeSection());
    return figures;
}

} // namespace driftbox::bench
