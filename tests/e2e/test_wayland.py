"""The program in a Wayland session, its windows on the session's X server."""

import pytest

from harness.sway import SwayDesktop
from harness.waiting import wait_for_equal


@pytest.fixture
def desktop():
    with SwayDesktop() as running:
        yield running


def texts(program):
    return [entry.get("textContent") for entry in program.manifest()]


def test_copies_of_native_programs_are_kept_without_the_focus(desktop, program):
    desktop.copy("first")
    wait_for_equal(lambda: texts(program), ["first"], "the history")
    desktop.copy("second")
    wait_for_equal(lambda: texts(program), ["second", "first"], "the history")


def test_a_native_password_is_not_kept(desktop, program):
    desktop.copy("secret", "--type", "x-kde-passwordManagerHint")
    desktop.copy("public")
    wait_for_equal(lambda: texts(program), ["public"], "the history")


def test_what_a_closed_native_program_had_copied_can_still_be_pasted(desktop, program):
    source = desktop.copy("kept")
    wait_for_equal(lambda: texts(program), ["kept"], "the history")
    desktop.processes.stop(source)
    wait_for_equal(desktop.pasted, "kept", "the clipboard")


def test_a_picked_entry_can_be_pasted_in_native_programs(desktop, program):
    desktop.copy("older")
    wait_for_equal(lambda: texts(program), ["older"], "the history")
    desktop.copy("newer")
    wait_for_equal(lambda: texts(program), ["newer", "older"], "the history")
    # Native windows cannot be given the paste shortcut yet.
    program.tolerate_complaint("")
    program.start_again()
    program.panel.wait_until_open()
    desktop.keyboard.tap("Down")
    desktop.keyboard.tap("Return")
    wait_for_equal(desktop.pasted, "older", "the clipboard")
