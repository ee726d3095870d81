"""Notes keep their place to the pixel under every window manager."""

import json

import pytest

from harness import screenshot
from harness.apps import GtkEditor
from harness.desktop import LEFT_OF_PRIMARY
from harness.notes import Notes, saved_note
from harness.waiting import wait_for, wait_for_equal
from harness.windows import Geometry

LAG = 16  # pixels that the pointer may go until a window manager takes over on a busy machine


def assert_stays_after_restart(notes, place):
    notes.program.restart()
    notes.reopen().wait_for_geometry(place)


@pytest.mark.parametrize("composited", [False, True], ids=["plain", "composited"])
@pytest.mark.parametrize("manager", ["openbox", "xfwm4", "kwin_x11"])
def test_a_note_keeps_its_place_when_reopened_and_after_a_restart(manager, composited, make_desktop, make_program):
    desktop = make_desktop(window_manager=manager, compositor=composited)
    notes = Notes(make_program(desktop).start())
    note = notes.make_saved("here")
    first = note.geometry()
    assert first == Geometry(1160, 40, 240, 200)

    note.drag(-417, 203)
    moved = note.settled(first)
    assert abs(moved.x - 743) <= LAG and abs(moved.y - 243) <= LAG
    assert (moved.width, moved.height) == (240, 200)
    desktop.pointer.move(moved.x + 100, moved.y + 100)
    note.drag_corner(63, 41)
    resized = note.settled(moved)
    assert (resized.x, resized.y) == (moved.x, moved.y)
    assert abs(resized.width - 303) <= LAG and abs(resized.height - 241) <= LAG

    desktop.keyboard.tap("w", ["Control_L"])
    note.wait_until_closed()
    notes.reopen().wait_for_geometry(resized)
    assert_stays_after_restart(notes, resized)


def test_a_note_keeps_its_place_when_a_compositor_comes_and_goes(make_desktop, make_program):
    desktop = make_desktop()
    notes = Notes(make_program(desktop).start())
    note = notes.make_saved("here")
    place = note.geometry()
    corner = (place.x, place.y)
    plain = screenshot.take(desktop.display).getpixel(corner)
    frame = notes.manifest()[0]["frame"]

    desktop.start_compositor()
    note.wait_for_geometry(place)
    wait_for(lambda: screenshot.take(desktop.display).getpixel(corner) != plain, "a round corner")
    desktop.stop_compositor()
    note.wait_for_geometry(place)
    wait_for(lambda: screenshot.take(desktop.display).getpixel(corner) == plain, "a corner")

    desktop.keyboard.type("!")
    notes.wait_for_texts(["here!"])
    assert notes.manifest()[0]["frame"] == frame


@pytest.mark.parametrize("manager", ["openbox", "xfwm4", "kwin_x11"])
def test_a_click_focuses_a_note(manager, make_desktop, make_program):
    desktop = make_desktop(window_manager=manager)
    notes = Notes(make_program(desktop).start())
    note = notes.make("one")
    editor = GtkEditor(desktop)
    editor.focus()
    desktop.keyboard.type("elsewhere")
    wait_for_equal(editor.text, "elsewhere", "the editor's text")
    note.focus()
    desktop.keyboard.type(" two")
    note.wait_for_text("one two")
    assert editor.text() == "elsewhere"


# Xfce's window manager tells monitors by their outputs, of which the virtual server has one.
@pytest.mark.parametrize("manager", ["openbox", "kwin_x11"])
def test_a_note_keeps_its_place_on_a_second_screen(manager, make_desktop, make_program):
    desktop = make_desktop(window_manager=manager, monitors=LEFT_OF_PRIMARY)
    notes = Notes(make_program(desktop).start())
    note = notes.make_saved("far left")
    first = note.geometry()
    assert first == Geometry(1200 + 1160, 40, 240, 200)
    note.drag(-1700, 300)
    place = note.settled(first)
    assert desktop.monitor_at(*place.center).name == "left"
    assert notes.manifest()[0]["frame"]["x"] == place.x - 1200
    assert_stays_after_restart(notes, place)


@pytest.mark.parametrize("composited", [False, True], ids=["plain", "composited"])
@pytest.mark.parametrize("manager", ["openbox", "xfwm4", "kwin_x11"])
def test_a_note_keeps_odd_pixels_at_scale_two(manager, composited, make_desktop, make_program):
    desktop = make_desktop(window_manager=manager, compositor=composited)
    desktop.environment["QT_SCREEN_SCALE_FACTORS"] = "2"
    notes = Notes(make_program(desktop))
    notes.write_manifest(json.dumps([
        saved_note(frame={"x": 100, "y": 100.5, "width": 240, "height": 200})]))
    notes.program.start()
    note = notes.reopen()
    first = note.geometry()
    assert first == Geometry(200, 900 - 2 * 100 - 1 - 2 * 200, 480, 400)

    note.drag(411, 93)
    moved = note.settled(first)
    note.drag_corner(63, 41)
    resized = note.settled(moved)
    assert resized.width > moved.width

    desktop.keyboard.tap("w", ["Control_L"])
    note.wait_until_closed()
    notes.reopen().wait_for_geometry(resized)
    assert_stays_after_restart(notes, resized)


def test_a_note_has_a_minimum_size(make_desktop, make_program):
    notes = Notes(make_program(make_desktop()).start())
    note = notes.make_saved("small")
    first = note.geometry()
    note.drag_corner(-200, -150)
    place = note.settled(first)
    assert (place.width, place.height) == (160, 120)
