#include "app/AppCoordinator.h"
#include "app/X11Desktop.h"
#include "bench/BenchHistory.h"
#include "bench/Benches.h"
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
constexpr int scrollStep = 487; // points; most rows are new
constexpr int notesBenchKeystrokes = 40;
constexpr int openings = 20;
constexpr qint64 notesBenchTimeoutMs = 5'000; // ms
constexpr QSize notesBenchPageSize{451, 592};

double notesBenchMilliseconds(const QElapsedTimer& timer)
{
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

StickyNote savedNote(const QString& text, int number)
{
    return {.textContent = text,
            .frame = {300, 300, 240, 200},
            .isSaved = true,
            .updatedAt = Instant::fromReferenceSeconds(700'000'000.0 - number)};
}

// Saved notes for the program to find: a long paragraph, a long list of lines, and usual ones.
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

// The editor of the note that `open` opens, once it takes typing.
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

// From the press until there is nothing left to do, painting and writing included.
double editorKeystrokeMs(NoteEditor& editor)
{
    QElapsedTimer timer;
    timer.start();
    QKeyEvent press(QEvent::KeyPress, Qt::Key_E, Qt::NoModifier, u"e"_s);
    QApplication::sendEvent(&editor, &press);
    QApplication::processEvents();
    return notesBenchMilliseconds(timer);
}

void addFigures(Figures& figures, const QString& name, std::vector<double> taken)
{
    std::ranges::sort(taken);
    figures[name + u"_median"_s] = taken[taken.size() / 2];
    figures[name + u"_worst"_s] = taken.back();
}

void measureTyping(Figures& figures, NoteManager& manager)
{
    const std::map<QString, size_t> places = {
        {u"notes_paragraph"_s, 0}, {u"notes_lines"_s, 1}, {u"notes_keystroke"_s, savedNotes / 2}};
    for (const auto& [name, place] : places) {
        const StickyNoteId id = manager.notes()[place].id;
        NoteEditor& editor = editorOf([&manager, id] { manager.focus(id); });
        std::vector<double> taken;
        for (int i = 0; i < notesBenchKeystrokes; ++i) {
            if (i == notesBenchKeystrokes / 2)
                editor.moveCursor(QTextCursor::Start);
            taken.push_back(editorKeystrokeMs(editor));
        }
        addFigures(figures, name, taken);
        manager.close(id);
        QApplication::processEvents();
    }
}

void measureOpening(Figures& figures, NoteManager& manager)
{
    std::vector<double> taken;
    for (int i = 0; i < openings; ++i) {
        QElapsedTimer timer;
        timer.start();
        (void)editorOf([&manager] { manager.newBlankNote(); });
        taken.push_back(notesBenchMilliseconds(timer));
        manager.close(manager.notes().front().id);
        QApplication::processEvents();
    }
    addFigures(figures, u"notes_opening"_s, taken);
}

// The page of the notes, scrolled from its beginning to its end.
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
    std::vector<double> taken;
    for (int place = 0; place < list->verticalScrollBar()->maximum(); place += scrollStep) {
        QElapsedTimer timer;
        timer.start();
        list->verticalScrollBar()->setValue(place);
        QApplication::processEvents();
        taken.push_back(notesBenchMilliseconds(timer));
    }
    addFigures(figures, u"notes_scrolling"_s, taken);
}

/// The program with saved notes.
struct Running
{
    explicit Running(int count)
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
    Running running(savedNotes);
    NoteManager& manager = running.coordinator->noteManager();
    Figures figures;
    measureOpening(figures, manager);
    measureTyping(figures, manager);
    return figures;
}

Figures notesList()
{
    Running running(listedNotes);
    SectionRegistry& registry = running.coordinator->registry();
    registry.select(u"notes"_s);
    Figures figures;
    measureScrolling(figures, *registry.activeSection());
    return figures;
}

} // namespace driftbox::bench
