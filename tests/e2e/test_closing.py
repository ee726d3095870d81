"""Windows that the window manager closes, as it does at Alt+F4: the program works on."""

import pytest

from harness.notes import Notes
from harness.reader import Reader
from harness.settings import Settings
from harness.statusbar import StatusBar
from harness.waiting import wait_for


@pytest.fixture
def close(desktop):
    return lambda: desktop.keyboard.tap("F4", ["Alt_L"])


def expect_working_panel(program):
    for _ in range(2):
        program.panel.open()
        program.desktop.keyboard.tap("Escape")
        program.panel.wait_until_closed()


def test_the_panel(program, close):
    for _ in range(2):
        program.panel.open()
        close()
        program.panel.wait_until_closed()
    expect_working_panel(program)


def test_the_settings(desktop, program, close):
    settings = Settings(program).open_from(StatusBar(desktop).item())
    close()
    settings.wait_until_closed()
    expect_working_panel(program)


def test_a_note(program, close):
    notes = Notes(program)
    notes.make_saved("kept")
    close()
    notes.wait_for_windows(0)
    expect_working_panel(program)
    notes.reopen()


def test_a_reader(desktop, program, close):
    file = desktop.folder / "read.md"
    file.write_text("Once upon a time", encoding="utf-8")
    program.expect_complaint("^kAEOpenDocuments: ")
    assert program.start_again(file) == 0
    reader = Reader(program, file)
    wait_for(lambda: desktop.windows.has_keyboard(reader.window), "the reader to have the keyboard")
    close()
    wait_for(lambda: not reader.windows(), "the reader to be gone")
    expect_working_panel(program)
