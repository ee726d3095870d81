"""The window manager, the buses, the server or applications fail: the program stays usable."""

import os
import signal
import time

from harness.apps import GtkEditor, XTerm
from harness.failures import copy
from harness.waiting import wait_for, wait_for_equal

PROMPT = 1.0  # seconds


def test_pasting_works_after_the_window_manager_restarts(desktop, program):
    editor = GtkEditor(desktop)
    with copy(desktop, "alpha"):
        program.wait_for_texts(["alpha"])
    desktop.stop_window_manager()
    desktop.start_window_manager()
    editor.focus()
    program.panel.open()
    desktop.keyboard.tap("Return")
    wait_for_equal(editor.text, "alpha", "the editor's text")


def test_the_panel_opens_without_a_window_manager(desktop, program):
    desktop.stop_window_manager()
    desktop.keyboard.double_tap()
    wait_for(program.panel.is_open, "the panel")
    desktop.keyboard.double_tap()
    program.panel.wait_until_closed()
    desktop.start_window_manager()
    program.panel.open()


def test_the_panel_opens_while_compositors_come_and_go(desktop, program):
    program.panel.open()
    desktop.start_compositor()
    desktop.keyboard.tap("Escape")
    program.panel.wait_until_closed()
    program.panel.open()
    desktop.stop_compositor()
    desktop.keyboard.tap("Escape")
    program.panel.wait_until_closed()
    program.panel.open()


def test_a_frozen_application_does_not_delay_the_panel(desktop, program):
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


def test_pasting_works_after_the_accessibility_bus_ends(desktop, program):
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


def test_the_program_ends_with_its_x_server(desktop, program):
    program.expect_complaint(
        "^(The X11 connection broke |The X server has closed the connection$)")
    with copy(desktop, "alpha"):
        program.wait_for_texts(["alpha"])
    desktop.stop_server()
    assert program.process.wait(10) == 1
    assert program.texts() == ["alpha"]
