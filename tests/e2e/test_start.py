"""One program per session, however often it is started; options that need no desktop."""

import os
import subprocess
import time

import pytest

from harness.program import PROGRAM
from harness.statusbar import StatusBar
from harness.waiting import wait_for



@pytest.mark.parametrize("option, beginning", [("--version", "Drift Box "), ("--help", "Usage: ")])
def test_options_are_answered_without_a_display(option, beginning):
    answer = subprocess.run([PROGRAM, option], env={"PATH": os.environ["PATH"]}, check=True,
                            capture_output=True, text=True, timeout=10)
    assert answer.stdout.startswith(beginning)
    assert not answer.stderr


@pytest.mark.parametrize("platform", [None, "xcb", "wayland", "offscreen"])
@pytest.mark.parametrize("display", [None, "", ":4711", "nonsense"])
def test_without_a_display_there_is_one_line_and_no_dump(tmp_path, display, platform):
    environment = {"PATH": os.environ["PATH"], "HOME": str(tmp_path),
                   "XDG_RUNTIME_DIR": str(tmp_path)}
    environment |= {name: value for name, value in (("DISPLAY", display),
                                                    ("QT_QPA_PLATFORM", platform))
                    if value is not None}
    answer = subprocess.run([PROGRAM], env=environment, capture_output=True, text=True, timeout=20)
    assert answer.returncode == 1
    assert answer.stderr == ("Drift Box needs a display: no X server answers at "
                             f'"{display or ""}"\n')


@pytest.mark.parametrize("platform", ["wayland", "wayland;xcb", "offscreen", "garbage"])
def test_the_x_server_is_used_whatever_the_toolkit_is_told(desktop, stopped_program, platform):
    desktop.environment["QT_QPA_PLATFORM"] = platform
    stopped_program.expect_complaint(f"^Using xcb instead of {platform}$")
    stopped_program.start().panel.open()


def test_asked_for_the_x_server_it_says_nothing(desktop, stopped_program):
    desktop.environment["QT_QPA_PLATFORM"] = "xcb"
    stopped_program.start().panel.open()


def test_a_second_start_hands_over_and_ends_promptly(desktop, program):
    started = time.monotonic()
    assert program.start_again() == 0
    taken = time.monotonic() - started
    assert taken < 1.0, taken  # far more than it takes, for a busy machine
    program.panel.wait_until_open()


def test_a_second_start_hands_over_its_files(desktop, program):
    program.expect_complaint("^kAEOpenDocuments: ")
    (desktop.folder / "notes.txt").write_text("no Markdown", encoding="utf-8")
    assert program.start_again(desktop.folder / "notes.txt", "other file.txt") == 0
    program.wait_for_log("^kAEOpenDocuments: notes.txt, other file.txt$")
    assert program.start_again() == 0
    program.panel.wait_until_open()
    program.assert_showed_panel(1)


def test_only_one_program_runs_without_a_bus(desktop, stopped_program):
    desktop.environment["DBUS_SESSION_BUS_ADDRESS"] = "unix:path=/nowhere"
    stopped_program.start()
    second = subprocess.run([PROGRAM], env=desktop.environment, capture_output=True, text=True,
                            timeout=20)
    assert second.returncode == 0
    assert "Already running" in second.stderr
    assert stopped_program.is_running
    desktop.keyboard.double_tap()
    wait_for(stopped_program.panel.has_keyboard, "the panel to have the keyboard")

    stopped_program.kill()  # leaves its lock behind
    stopped_program.start()


def test_simultaneous_starts_leave_one_program(desktop):
    bar = StatusBar(desktop)
    started = [desktop.processes.start(PROGRAM, name=f"driftbox-{i}") for i in range(5)]
    wait_for(lambda: sum(process.poll() is None for process in started) == 1,
             "all but one to be done")
    assert {process.poll() for process in started} == {None, 0}
    bar.item()
