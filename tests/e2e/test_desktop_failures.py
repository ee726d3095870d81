"""A desktop whose parts end, freeze and come back: the program stays usable."""

import os
import signal
import time

from harness.apps import GtkEditor, XTerm
from harness.failures import copy
from harness.waiting import wait_for, wait_for_equal

PROMPT = 1.0  # seconds


def test_a_window_manager_that_restarts(desktop, program):
    editor = GtkEditor(desktop)
    with copy(desktop, "alpha"):
        program.wait_for_texts(["alpha"])
    desktop.stop_window_manager()
    desktop.start_window_manager()
    editor.focus()
    program.panel.open()
    desktop.keyboard.tap("Return")
    wait_for_equal(editor.text, "alpha", "the editor's text")


def test_a_desktop_without_a_window_manager(desktop, program):
    desktop.stop_window_manager()
    desktop.keyboard.double_tap()
    wait_for(program.panel.is_open, "the panel")
    desktop.keyboard.double_tap()
    program.panel.wait_until_closed()
    desktop.start_window_manager()
    program.panel.open()


def test_a_compositor_that_comes_and_goes(desktop, program):
    program.panel.open()
    desktop.start_compositor()
    desktop.keyboard.tap("Escape")
    program.panel.wait_until_closed()
    program.panel.open()
    desktop.stop_compositor()
    desktop.keyboard.tap("Escape")
    program.panel.wait_until_closed()
    program.panel.open()


def test_an_application_that_freezes_while_its_caret_is_asked_for(desktop, program):
    editor = GtkEditor(desktop, "words")
    program.panel.open()  # at its caret, so that the focus is known
    desktop.keyboard.tap("Escape")
    program.panel.wait_until_closed()
    wait_for(editor.has_keyboard, "the editor to have the keyboard")
    os.killpg(editor.process.pid, signal.SIGSTOP)
    try:
        started = time.monotonic()
        desktop.keyboard.double_tap()
        wait_for(program.panel.is_open, "the panel")
        assert time.monotonic() - started < PROMPT
        x, y = program.panel.geometry().center
        assert (x, y) == (desktop.primary.width // 2, desktop.primary.height // 2)
        wait_for(program.panel.has_keyboard, "the panel to have the keyboard")
        desktop.keyboard.tap("Escape")
        program.panel.wait_until_closed()
    finally:
        os.killpg(editor.process.pid, signal.SIGCONT)


def test_an_accessibility_bus_that_ends(desktop, program):
    with copy(desktop, "alpha"):
        program.wait_for_texts(["alpha"])
    # The toolkit says it for each key, in words of its own.
    program.tolerate_complaint("^QSpiApplication::keyEventError ")
    desktop.stop_accessibility()
    terminal = XTerm(desktop)
    desktop.keyboard.double_tap()
    wait_for(program.panel.has_keyboard, "the panel to have the keyboard")
    desktop.keyboard.tap("Return")
    wait_for_equal(terminal.text, "alpha", "the terminal's text")


def test_an_x_server_that_ends_takes_the_program_with_it(desktop, program):
    program.expect_complaint(
        "^(The X11 connection broke |The X server has closed the connection$)")
    with copy(desktop, "alpha"):
        program.wait_for_texts(["alpha"])
    desktop.stop_server()
    assert program.process.wait(10) == 1
    assert program.texts() == ["alpha"]
