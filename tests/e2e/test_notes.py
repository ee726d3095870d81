"""Sticky notes: created, edited, saved, closed and reopened."""

import json

import pytest

from harness import notes as controls
from harness.apps import GtkEditor, XTerm
from harness.notes import Notes, saved_note
from harness.program import entry
from harness.statusbar import StatusBar
from harness.waiting import wait_for, wait_for_equal
from harness.windows import Geometry
from harness.xclients import ClipboardOwner


@pytest.fixture
def notes(program):
    """The notes of the running program; there are none."""
    return Notes(program)


# Making notes


def test_a_new_note_has_the_keyboard_and_is_a_draft(desktop, notes):
    XTerm(desktop)
    note = notes.make("hello")
    assert note.geometry() == Geometry(1440 - 40 - 240, 40, 240, 200)
    notes.program.panel.wait_until_closed()
    assert notes.manifest() == []


def test_notes_cascade(desktop, notes):
    places = [notes.make().geometry() for _ in range(3)]
    assert [(place.x, place.y) for place in places] == [(1160, 40), (1134, 66), (1108, 92)]


def test_a_text_entry_becomes_a_note(desktop, stopped_program):
    stopped_program.write_manifest_of([entry(1, "alpha"), entry(2, "beta\ngamma")])
    notes = Notes(stopped_program.start())
    stopped_program.panel.open()
    stopped_program.panel.click_action("Text: beta\ngamma", "Make a sticky note")
    note = notes.next_window()
    note.wait_for_text("beta\ngamma")
    stopped_program.panel.wait_until_closed()


def test_a_picture_becomes_a_note(desktop, program, notes, picture):
    with ClipboardOwner(desktop, {"image/png": picture}):
        [item] = program.wait_for_entries(1)
    program.panel.open()
    program.panel.click_action(program.panel.row_names()[0], "Make a sticky note")
    note = notes.next_window()
    assert (note.geometry().width, note.geometry().height) == (320, 320 * 200 // 320 + 96)
    [image] = notes.images.iterdir()
    assert image.read_bytes() == program.image_path(item).read_bytes()
    desktop.keyboard.type("a caption")
    note.wait_for_text("a caption")
    note.click(controls.CLOSE)
    note.wait_until_closed()
    wait_for(lambda: not list(notes.images.iterdir()), "the draft's picture to be gone")


def test_quitting_deletes_drafts_and_their_pictures(desktop, stopped_program, picture):
    bar = StatusBar(desktop)
    program = stopped_program.start()
    item = bar.item()
    with ClipboardOwner(desktop, {"image/png": picture}):
        program.wait_for_entries(1)
    program.panel.open()
    program.panel.click_action(program.panel.row_names()[0], "Make a sticky note")
    notes = Notes(program)
    notes.next_window()
    assert list(notes.images.iterdir())
    item.choose("Quit Drift Box")
    assert program.process.wait(10) == 0
    assert not list(notes.images.iterdir())


# Saving, closing, opening again


def test_every_key_press_in_a_saved_note_reaches_the_disk(desktop, notes):
    notes.make_saved("a")
    for text in ("ab", "abc"):
        desktop.keyboard.type(text[-1])
        notes.wait_for_texts([text])


def test_unsaving_removes_a_note_from_disk(desktop, notes):
    note = notes.make_saved("kept for a while")
    note.click(controls.UNSAVE)
    notes.wait_for_texts([])
    note.click(controls.CLOSE)
    note.wait_until_closed()
    notes.open_section()
    wait_for(lambda: notes.program.panel.shows("No notes yet*"), "the empty page")


def test_a_saved_note_is_closed_and_opened_again(desktop, notes):
    note = notes.make_saved("still here")
    place = note.geometry()
    desktop.keyboard.tap("w", ["Control_L"])
    note.wait_until_closed()
    assert notes.texts() == ["still here"]
    again = notes.reopen()
    again.wait_for_text("still here")
    again.wait_for_geometry(place)


def test_shortcuts_zoom_make_and_close_notes(desktop, notes):
    note = notes.make("zoom")
    desktop.keyboard.tap("equal", ["Control_L"])
    note.wait_for_geometry(Geometry(1160 - 12, 30, 264, 220))
    desktop.keyboard.tap("minus", ["Super_L"])
    note.wait_for_geometry(Geometry(1160, 40, 240, 200))
    desktop.keyboard.tap("n", ["Control_L"])
    second = notes.next_window([note.window])
    desktop.keyboard.tap("w", ["Super_L"])
    second.wait_until_closed()
    assert note.is_open()
    assert note.text() == "zoom"


def test_shortcuts_of_notes_do_nothing_in_other_windows(desktop, notes):
    editor = GtkEditor(desktop)
    note = notes.make()
    place = note.geometry()
    editor.focus()
    desktop.keyboard.tap("n", ["Control_L"])
    desktop.keyboard.tap("equal", ["Control_L"])
    desktop.keyboard.tap("w", ["Control_L"])
    desktop.keyboard.type("end")
    wait_for_equal(editor.text, "end", "the editor's text")
    assert notes.windows() == [note.window]
    assert note.geometry() == place


def test_shortcuts_of_notes_work_on_a_cyrillic_keyboard(desktop, notes):
    desktop.processes.run("setxkbmap", "-layout", "us,ru", "-option", "grp:caps_toggle")
    note = notes.make("a")
    desktop.keyboard.tap("Caps_Lock")
    desktop.keyboard.type("f")
    note.wait_for_text("a\u0430")
    desktop.keyboard.tap("n", ["Control_L"])
    second = notes.next_window([note.window])
    desktop.keyboard.tap("w", ["Control_L"])
    second.wait_until_closed()


def test_closing_all_leaves_the_saved_notes_listed(desktop, notes):
    notes.make_saved("saved")
    notes.make("draft")
    notes.open_section()
    assert notes.program.panel.shows("2 notes")
    notes.program.panel.click_button(controls.CLOSE_ALL)
    notes.wait_for_windows(0)
    wait_for(lambda: notes.program.panel.shows("1 note"), "the count")
    assert notes.texts() == ["saved"]


def test_after_a_restart_notes_are_listed_and_closed(desktop, notes):
    note = notes.make_saved("survivor")
    first = note.geometry()
    note.drag(-300, 200)
    place = note.settled(first)
    frame = {"x": place.x, "y": 900 - place.y - 200, "width": 240, "height": 200}
    wait_for(lambda: notes.manifest()[0]["frame"] == frame, "the frame on disk")
    mark = len(notes.program.log())
    notes.program.restart()
    notes.program.wait_for_log(r"^Loaded 1 saved note\(s\); windows left closed$", mark)
    assert notes.windows() == []
    notes.reopen().wait_for_geometry(place)


def test_the_search_for_notes_ignores_case(desktop, stopped_program):
    notes = Notes(stopped_program)
    notes.write_manifest(json.dumps([saved_note(1, textContent="Buy MILK"),
                                     saved_note(2, textContent="call home")]))
    stopped_program.start()
    notes.open_section()
    desktop.keyboard.type("HOME")
    wait_for(lambda: not stopped_program.panel.shows("Buy MILK"), "the row to go")
    desktop.keyboard.tap("Return")
    notes.next_window().wait_for_text("call home")


# The pasteboard


def test_the_copy_button_of_a_note_adds_no_entry(desktop, notes):
    editor = GtkEditor(desktop)
    note = notes.make("from a note")
    note.click(controls.COPY)
    editor.focus()
    desktop.keyboard.tap("v", ["Control_L"])
    wait_for_equal(editor.text, "from a note", "the editor's text")
    notes.program.look_at_clipboard()
    assert notes.program.texts() == []


def test_text_copied_in_a_note_adds_an_entry(desktop, notes):
    notes.make("from a note")
    for key in "ac":
        desktop.keyboard.tap(key, ["Control_L"])
    notes.program.wait_for_texts(["from a note"])


def test_copy_and_paste_within_a_note(desktop, notes):
    note = notes.make("word ")
    for key in "acvv":
        desktop.keyboard.tap(key, ["Control_L"])
    note.wait_for_text("word word ")


def test_the_middle_button_pastes_the_selection_of_another_program(desktop, notes):
    editor = GtkEditor(desktop)
    editor.focus()
    desktop.keyboard.type("selected elsewhere")
    desktop.keyboard.tap("a", ["Control_L"])
    note = notes.make("in a note: ")
    place = note.geometry()
    desktop.pointer.click(place.x + place.width - 30, place.y + 45, button=2)
    note.wait_for_text("in a note: selected elsewhere")


def test_the_middle_button_pastes_the_selection_of_the_note(desktop, notes):
    note = notes.make("word ")
    place = note.geometry()
    for _ in range(2):
        desktop.pointer.click(place.x + 25, place.y + 42)
    note.wait_for_selection("word")
    desktop.pointer.click(place.x + place.width - 30, place.y + 42, button=2)
    note.wait_for_text("word word")


def test_text_can_be_dragged_from_another_program_into_a_note(desktop, notes):
    editor = GtkEditor(desktop)
    editor.focus()
    desktop.keyboard.type("carried")
    desktop.keyboard.tap("a", ["Control_L"])
    caret = editor.caret()
    note = notes.make("here: ")
    place = note.geometry()
    desktop.pointer.drag((caret.x - 10, caret.y + caret.height // 2),
                         (place.x + place.width - 30, place.y + 42), steps=20, linger_ms=800)
    note.wait_for_text("here: carried")


# The panel


def test_the_panel_opens_at_the_caret_of_a_note(desktop, stopped_program):
    notes = Notes(stopped_program)
    notes.write_manifest(json.dumps([saved_note(
        textContent="one\ntwo\n\nthree", frame={"x": 100, "y": 600, "width": 260, "height": 200})]))
    stopped_program.start()
    note = notes.reopen()
    for _ in range(2):
        desktop.keyboard.tap("Up")
    caret = note.node().find(name="Note text").caret()
    notes.program.panel.open()
    place = notes.program.panel.geometry()
    assert abs(place.x - caret.x) <= 1
    assert 0 <= place.y - (caret.y + caret.height) <= 20


# The window


def test_a_note_stays_above_on_every_desktop_and_out_of_the_taskbar(desktop, notes):
    note = notes.make()
    states = desktop.windows.states(note.window)
    assert {"_NET_WM_STATE_ABOVE", "_NET_WM_STATE_SKIP_TASKBAR",
            "_NET_WM_STATE_SKIP_PAGER"} <= states
    assert desktop.windows.is_on_all_desktops(note.window)


def test_the_controls_show_under_the_pointer_only(desktop, notes):
    note = notes.make("text")
    note.hover()
    text = note.node().find(name="Note text").extents()
    desktop.pointer.move(10, 10)
    wait_for(lambda: not note.node().find(name=controls.CLOSE).is_showing, "the controls to go")
    assert note.node().find(name="Note text").extents() == text


def test_the_window_manager_can_close_a_note(desktop, notes):
    note = notes.make_saved("kept")
    desktop.windows.close(note.window)
    note.wait_until_closed()
    assert notes.texts() == ["kept"]
    notes.reopen().wait_for_text("kept")
