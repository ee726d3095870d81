"""Sticky notes with broken, foreign and unwritable files: nothing saved is lost."""

import json
import resource
import signal
import time

import pytest

from harness import notes as controls
from harness import pictures
from harness.notes import Notes, saved_note
from harness.program import LogLine
from harness.waiting import wait_for, wait_for_equal
from harness.windows import Geometry

_FAILED = "^Failed to persist notes manifest: "


@pytest.fixture
def stopped(stopped_program):
    """The notes of a program that is not started yet."""
    return Notes(stopped_program)


def frame(**changes):
    return saved_note(frame={"x": 1, "y": 2, "width": 300, "height": 200, **changes})


# The content of the file and the problem that is logged.
_CORRUPT_MANIFESTS = {
    "truncated": ('[{"id"', "':' expected near end of file at line 1, column 6"),
    "torn within a text": ('[{"textContent":"hunter2',
                           "premature end of input at line 1, column 24"),
    "a color": (json.dumps([saved_note(1), saved_note(2, color="purple")]),
                'item 1: "color" is malformed'),
    "no height": (json.dumps([saved_note(frame={"x": 1, "y": 2, "width": 3})]),
                  'item 0: "frame" is malformed'),
    "infinite": ('[{"zoom": 1e999}]', "real number overflow at line 1, column 15"),
}


@pytest.mark.parametrize(("bad", "problem"), _CORRUPT_MANIFESTS.values(),
                         ids=_CORRUPT_MANIFESTS.keys())
def test_a_corrupt_manifest_starts_empty_and_is_kept_aside(stopped, bad, problem):
    stopped.write_manifest(bad)
    stopped.program.expect_complaint("^Notes manifest corrupt, starting empty: ")
    stopped.program.start()
    assert stopped.program.complaints() == [LogLine(
        "error", "FileNotesStore", f"Notes manifest corrupt, starting empty: {problem}")]
    note = stopped.make("new")
    assert len(stopped.windows()) == 1
    assert stopped.manifest_path.read_text(encoding="utf-8") == bad
    note.click(controls.SAVE)
    aside = stopped.root / "manifest.corrupt.json"
    wait_for(lambda: stopped.manifest_path.read_text(encoding="utf-8") != bad, "a new manifest")
    assert stopped.texts() == ["new"]
    assert aside.read_text(encoding="utf-8") == bad


_ODD_FRAMES = [
    {"width": 0, "height": 0},
    {"x": 300, "y": 300, "width": -50, "height": -50},
    {"x": -1e300, "y": -1e300, "width": 2e300, "height": 2e300},
    {"x": 100, "y": -30000000, "width": 300, "height": 30000500},
    {"x": 1e17, "y": -1e17},
    {"x": 0.4, "y": 0.6, "width": 200.5, "height": 150.5},
]


@pytest.mark.parametrize("changes", _ODD_FRAMES)
def test_an_odd_frame_still_opens_a_usable_window(desktop, stopped, changes):
    stopped.write_manifest(json.dumps([{**frame(**changes), "zoom": 1e300}]))
    stopped.program.start()
    place = stopped.reopen().geometry()
    assert 160 <= place.width <= 1600 and 120 <= place.height <= 2000
    desktop.keyboard.type("!")
    stopped.wait_for_texts(["text!"])


def test_a_note_of_a_missing_screen_opens_on_another(stopped):
    place = {"x": 5000, "y": 400, "width": 260, "height": 180}
    stopped.write_manifest(json.dumps([saved_note(frame=place)]))
    stopped.program.start()
    stopped.reopen().wait_for_geometry(Geometry(1160, 40, 240, 200))
    assert stopped.manifest()[0]["frame"] == place


def test_a_note_without_its_picture_can_be_edited(desktop, stopped):
    stopped.write_manifest(json.dumps([
        saved_note(1, kind="image", textContent="", imageFileName="../../../../etc/hostname"),
        saved_note(2, kind="image", textContent="")]))
    stopped.program.start()
    for row in (0, 1):
        note = stopped.reopen(row)
        note.click(controls.COPY)
        desktop.keyboard.type("caption")
        note.wait_for_text("caption")
        desktop.keyboard.tap("w", ["Control_L"])
        note.wait_until_closed()
    stopped.wait_for_texts(["caption", "caption"])


@pytest.mark.parametrize("kind", ["PNG", "JPEG", "WebP"])
def test_pictures_of_every_format_are_shown_and_left_unchanged(desktop, stopped, kind):
    data = pictures.encoded(pictures.colorful(), kind)
    stopped.write_manifest(json.dumps([saved_note(
        kind="image", textContent="", frame={"x": 300, "y": 300, "width": 400, "height": 360})]))
    stopped.images.mkdir()
    path = stopped.images / f"{saved_note()['id']}.png"
    path.write_bytes(data)
    stopped.program.start()
    note = stopped.reopen()

    def shows_picture():
        place = note.geometry()
        seen = note.picture().crop((60, 60, place.width - 60, 200))
        return len(seen.getcolors(1 << 20)) > 100

    wait_for(shows_picture, "the picture to be seen")
    desktop.keyboard.type("x")
    stopped.wait_for_texts(["x"])
    assert path.read_bytes() == data


# Disks


def test_a_folder_that_cannot_be_written(desktop, stopped):
    """Even root may not create files in the kernel's own file system."""
    stopped.program.root.mkdir()
    stopped.root.symlink_to("/sys/kernel")
    stopped.program.expect_complaint(_FAILED)
    stopped.program.start()
    note = stopped.make("unsaved")
    note.click(controls.SAVE)
    stopped.program.wait_for_log(_FAILED)
    desktop.keyboard.tap("w", ["Control_L"])
    note.wait_until_closed()
    stopped.reopen().wait_for_text("unsaved")


def test_a_full_disk(desktop, stopped):
    """No file may grow beyond 8 KiB: what is typed beyond that is kept in memory."""
    def limit():
        signal.signal(signal.SIGXFSZ, signal.SIG_IGN)
        resource.setrlimit(resource.RLIMIT_FSIZE, (8192, 8192))

    text = "a" * 7800
    stopped.write_manifest(json.dumps([saved_note(textContent=text)]))
    stopped.program.expect_complaint(_FAILED)
    stopped.program.start(limits=limit)
    note = stopped.reopen()
    desktop.keyboard.type("b" * 300)
    note.wait_for_text(text + "b" * 300)
    stopped.program.wait_for_log(_FAILED)
    [kept] = stopped.texts()
    assert kept.startswith(text) and len(kept) < 8100
    assert {path.name for path in stopped.root.iterdir()} == {"manifest.json", "images"}
    for _ in range(200):
        desktop.keyboard.tap("BackSpace")
    stopped.wait_for_texts([text + "b" * 100])


def test_the_manifest_survives_a_kill_while_typing(desktop, stopped):
    stopped.write_manifest(json.dumps([saved_note(textContent="")]))
    written = ""
    for round_number in range(8):
        stopped.program.start()
        note = stopped.reopen()
        wait_for_equal(note.text, written, "what was written before")
        desktop.keyboard.type("abcdefgh" * 4)
        # Somewhere in the middle of the writing: every key press is on its way already.
        time.sleep(round_number * 0.004)
        stopped.program.kill()
        [text] = stopped.texts()
        assert (written + "abcdefgh" * 4).startswith(text) and text.startswith(written)
        written = text
    assert written


def test_a_kill_after_typing_loses_nothing(desktop, stopped):
    stopped.program.start()
    note = stopped.make_saved("a")
    desktop.keyboard.type("bcdefgh")
    note.wait_for_text("abcdefgh")
    stopped.program.kill()
    assert stopped.texts() == ["abcdefgh"]
