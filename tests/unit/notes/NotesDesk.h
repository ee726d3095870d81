#pragma once

#include "core/AppSettings.h"
#include "core/PasteboardWriter.h"
#include "fakes/FakeClock.h"
#include "fakes/FakeFileSystem.h"
#include "fakes/FakeFloatingSurface.h"
#include "fakes/FakeLocalKeyMonitor.h"
#include "fakes/FakePasteboard.h"
#include "fakes/FakeScreens.h"
#include "fakes/FakeTaskRunner.h"
#include "fakes/FakeUserDefaults.h"
#include "notes/FileNotesStore.h"
#include "notes/NoteManager.h"
#include "notes/NotesManifest.h"
#include "notes/StickyNoteWindowController.h"
#include "support/Images.h"

#include <memory>

#include <QtCore/QCoreApplication>
#include <QtGui/QWindow>

namespace driftbox {

/// A note window that is never shown.
class FakeNoteWindow final : public NoteWindow
{
public:
    FakeNoteWindow(StickyNoteViewModel& shown, int& windowCount)
        : viewModel(shown)
        , m_windowCount(windowCount)
    {
        ++m_windowCount;
    }
    FakeNoteWindow(const FakeNoteWindow&) = delete;
    FakeNoteWindow& operator=(const FakeNoteWindow&) = delete;
    ~FakeNoteWindow() override { --m_windowCount; }

    [[nodiscard]] FloatingSurface& surface() override { return fake; }
    [[nodiscard]] double shadowMargin() const override { return margin; }

    StickyNoteViewModel& viewModel;
    double margin = 0;
    QWindow window;
    FakeFloatingSurface fake{window, FloatingSurface::Role::note};

private:
    int& m_windowCount;
};

class FakeNoteWindows final : public NoteWindowFactory
{
public:
    [[nodiscard]] std::unique_ptr<NoteWindow> makeWindow(StickyNoteViewModel& viewModel) override
    {
        auto window = std::make_unique<FakeNoteWindow>(viewModel, count);
        last = window.get();
        return window;
    }

    FakeNoteWindow* last = nullptr; ///< the newest; dangling once it is gone
    int count = 0;                  ///< those that exist
};

/// The notes with all their dependencies.
struct NotesDesk
{
    ~NotesDesk()
    {
        manager.reset();
        settle();
    }

    /// Deletes the closed windows.
    static void settle() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

    /// The program ends and starts again.
    void restart()
    {
        manager.reset();
        settle();
        store = std::make_unique<FileNotesStore>(files, root);
        manager = makeManager();
    }

    [[nodiscard]] std::vector<StickyNote> manifest() const
    {
        return *NotesManifest::decode(files.read(manifestPath).value_or("[]"));
    }
    [[nodiscard]] int manifestWrites() const { return files.writeCount(manifestPath); }
    [[nodiscard]] QString imagePath(StickyNoteId id) const
    {
        return root + QStringLiteral("/images/") + id.text() + QStringLiteral(".png");
    }

    /// Makes a note with this text and opens it.
    StickyNoteViewModel& open(const QString& text)
    {
        manager->createNote(text);
        return windows.last->viewModel;
    }
    /// The same, and saves it.
    StickyNoteViewModel& openSaved(const QString& text)
    {
        StickyNoteViewModel& note = open(text);
        note.toggleSaved();
        return note;
    }

    [[nodiscard]] FakeFloatingSurface& lastSurface() const { return windows.last->fake; }

    [[nodiscard]] std::unique_ptr<NoteManager> makeManager()
    {
        return std::make_unique<NoteManager>(NoteManager::Services{
            *store, settings, files, tasks, writer, clock, screens, keys, windows});
    }

    const QString root = QStringLiteral("/data/notes");
    const QString manifestPath = root + QStringLiteral("/manifest.json");
    FakeUserDefaults defaults;
    AppSettings settings{defaults};
    FakeFileSystem files;
    FakeTaskRunner tasks;
    FakePasteboard pasteboard;
    PasteboardWriter writer{pasteboard};
    FakeClock clock;
    FakeScreens screens;
    FakeLocalKeyMonitor keys;
    FakeNoteWindows windows;
    std::unique_ptr<FileNotesStore> store = std::make_unique<FileNotesStore>(files, root);
    std::unique_ptr<NoteManager> manager = makeManager();
};

} // namespace driftbox
