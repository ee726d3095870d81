#pragma once

#include "fakes/FakeSelectedText.h"
#include "notes/StickyNoteViewModel.h"
#include "unit/notes/NotesDesk.h"

namespace driftbox {

/// The state of one open note, without a manager.
struct OpenNote
{
    explicit OpenNote(const StickyNote& note = {})
        : viewModel(note, {*desk.store, desk.files, desk.tasks, desk.writer, desk.clock},
                    [this](const StickyNote&) { ++reports; })
    {
    }

    NotesDesk desk;
    FakeSelectedText selectedText;
    int reports = 0;
    StickyNoteViewModel viewModel;
};

} // namespace driftbox
