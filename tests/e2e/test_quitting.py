"""What the program leaves behind when it quits."""

import signal

import pytest

from harness.apps import XTerm
from harness.clipboard_manager import ClipboardManager
from harness.notes import Notes
from harness.program import entry
from harness.reader import Reader
from harness.settings import Settings
from harness.statusbar import StatusBar
from harness.waiting import wait_for, wait_for_equal
from harness.xclients import ClipboardOwner, ClipboardReader


@pytest.fixture
def history(stopped_program):
    """The running program with an entry that lies on the clipboard, pasted into a terminal."""
    stopped_program.write_manifest_of([entry(1, "alpha")])
    program = stopped_program.start()
    terminal = XTerm(program.desktop)
    program.panel.open()
    program.panel.wait_for_rows(["Text: alpha"])
    program.desktop.keyboard.tap("Return")
    wait_for_equal(terminal.text, "alpha", "the terminal's text")
    return program


def quit_by_menu(program):
    StatusBar(program.desktop).item().choose("Quit Drift Box")
    assert program.process.wait(10) == 0


def quit_by_signal(program):
    program.process.terminate()
    assert program.process.wait(10) == 0


def pasted(desktop):
    with ClipboardReader(desktop) as reader:
        return reader.text()


def test_a_clipboard_manager_keeps_what_was_picked(desktop, history):
    with ClipboardManager(desktop) as manager:
        quit_by_menu(history)
        assert manager.questions == 1
        assert pasted(desktop) == "alpha"


@pytest.mark.parametrize("number", [signal.SIGTERM, signal.SIGINT, signal.SIGHUP])
def test_signals_quit_in_order(desktop, history, number):
    with ClipboardManager(desktop) as manager:
        history.process.send_signal(number)
        assert history.process.wait(10) == 0
        assert manager.questions == 1
        assert pasted(desktop) == "alpha"


def test_a_frozen_clipboard_manager_does_not_prevent_quitting(desktop, history):
    history.expect_complaint("The clipboard manager does not answer")
    with ClipboardManager(desktop, frozen=True) as manager:
        quit_by_menu(history)
        assert manager.questions == 1


def test_the_clipboard_of_another_program_is_left_alone(desktop, history):
    with ClipboardManager(desktop) as manager, ClipboardOwner(desktop, {"UTF8_STRING": b"beta"}):
        history.wait_for_texts(["beta", "alpha"])
        quit_by_menu(history)
        assert manager.questions == 0
        assert pasted(desktop) == "beta"


@pytest.mark.parametrize("quit_program", [quit_by_menu, quit_by_signal])
def test_it_ends_whatever_is_open(desktop, program, quit_program):
    file = desktop.folder / "read.md"
    file.write_text("Once upon a time", encoding="utf-8")
    program.expect_complaint("^kAEOpenDocuments: ")
    bar = StatusBar(desktop)
    assert program.start_again(file) == 0
    reader = Reader(program, file)
    source = reader.edit()
    source.act("SetFocus")
    desktop.keyboard.type("New: ")
    wait_for(reader.has_unsaved_dot, "the change to be noticed")
    notes = Notes(program)
    notes.make_saved("kept")
    notes.make("a draft")
    Settings(program).open_from(bar.item())
    program.panel.open()
    quit_program(program)
    assert "New: " in file.read_text(encoding="utf-8")
    assert notes.texts() == ["kept"]


def test_quitting_works_without_a_clipboard_manager(desktop, history):
    quit_by_menu(history)
