"""Files that are broken, foreign or cannot be written: nothing saved is lost."""

import resource
import signal
import time

import pytest

from harness.misfortune import (
    assert_goes_on, assert_opens_promptly, copy, wait_for_one_complaint)
from harness.program import entry
from harness.waiting import wait_for
from harness.xclients import ClipboardOwner



@pytest.mark.parametrize("text", [
    "", "[", '[{"id"', "nonsense", '{"a": 1}', "[" * 100_000,
    '[{"id":"00000000-0000-4000-8000-000000000001","kind":"file","createdAt":1}]',
    '[{"id":"00000000-0000-4000-8000-000000000001","kind":"text"}]',
    '[{"id":"../../etc/passwd","kind":"image","createdAt":1}]',
], ids=["empty", "truncated", "cut in a key", "nonsense", "object", "deep", "kind", "instant", "id"])
def test_a_manifest_that_is_none(desktop, stopped_program, text):
    stopped_program.expect_complaint("^Manifest corrupt, starting empty: ")
    stopped_program.write_manifest(text)
    stopped_program.start()
    stopped_program.wait_for_log("^Manifest corrupt, starting empty: ")
    assert stopped_program.manifest_path.read_text(encoding="utf-8") == text
    with copy(desktop, "honest"):
        wait_for(lambda: stopped_program.manifest_path.read_text(encoding="utf-8") != text,
                 "a new manifest")
    assert stopped_program.texts() == ["honest"]
    aside = stopped_program.root / "manifest.corrupt.json"
    assert aside.read_text(encoding="utf-8") == text


def test_a_manifest_that_names_files_elsewhere(desktop, stopped_program):
    victim = desktop.folder / "home/victim.png"
    victim.write_bytes(b"not yours")
    stopped_program.write_manifest_of([
        {"id": "00000000-0000-4000-8000-000000000001", "kind": "image", "createdAt": 1,
         "imageFileName": "../../../../victim.png"}])
    stopped_program.start()
    stopped_program.panel.open()
    wait_for(stopped_program.panel.rows, "the row")
    desktop.keyboard.tap("Delete")
    stopped_program.wait_for_entries(0)
    assert victim.read_bytes() == b"not yours"


@pytest.mark.parametrize("text", ["", "no JSON", "[1, 2]", '{"settings.hotkeyThresholdMs": "x"}'])
def test_settings_that_are_none(desktop, stopped_program, text):
    stopped_program.expect_complaint("^Settings unreadable, using defaults: ")
    stopped_program.defaults_path.parent.mkdir(parents=True)
    stopped_program.defaults_path.write_text(text, encoding="utf-8")
    stopped_program.start()
    stopped_program.panel.open()
    assert_goes_on(desktop, stopped_program)


def test_a_folder_that_cannot_be_written(desktop, stopped_program):
    """Even root may not create files in the kernel's own file system."""
    stopped_program.root.symlink_to("/sys/kernel")
    stopped_program.expect_complaint("^Failed to persist manifest: ")
    stopped_program.start()
    with copy(desktop, "unsaved"):
        wait_for_one_complaint(stopped_program, "^Failed to persist manifest: ")
    stopped_program.panel.open()
    stopped_program.panel.wait_for_rows(["Text: unsaved"])


def test_a_full_disk(desktop, stopped_program):
    """No file may grow beyond 8 KiB: the third long text does not fit into the manifest."""
    def limit():
        signal.signal(signal.SIGXFSZ, signal.SIG_IGN)
        resource.setrlimit(resource.RLIMIT_FSIZE, (8192, 8192))

    stopped_program.start(limits=limit)
    for letter in "ab":
        with copy(desktop, letter * 3500):
            wait_for(lambda letter=letter: stopped_program.texts()[:1] == [letter * 3500], letter)
    before = stopped_program.manifest_path.read_bytes()
    with copy(desktop, "c" * 3500):
        wait_for_one_complaint(stopped_program, "^Failed to persist manifest: ")
    assert stopped_program.manifest_path.read_bytes() == before
    assert {path.name for path in stopped_program.root.iterdir()} <= {
        "manifest.json", "images", "notes"}
    stopped_program.panel.open()
    wait_for(lambda: len(stopped_program.panel.rows()) == 3, "the rows that memory keeps")


def test_killed_at_any_moment(desktop, stopped_program, picture):
    """The manifest is whole after every kill, and the pictures that it lists are there."""
    for round_number in range(12):
        stopped_program.start()
        with copy(desktop, f"round {round_number}"):
            wait_for(lambda n=round_number: stopped_program.texts()[:1] == [f"round {n}"], "a text")
        with ClipboardOwner(desktop, {"image/png": picture}) as owner:
            owner.wait_until_asked("image/png")
            # The next look at the clipboard comes within half a second: kill around it.
            time.sleep(round_number * 0.05)
            stopped_program.kill()
        entries = stopped_program.manifest()
        assert f"round {round_number}" in stopped_program.texts()
        for item in entries:
            if item["kind"] == "image":
                assert stopped_program.image_path(item).read_bytes().endswith(b"IEND\xaeB`\x82")


def test_a_history_of_another_hand_with_thousands_of_entries(desktop, stopped_program):
    stopped_program.write_manifest_of(
        [entry(number, f"entry {number} " + "x" * 500) for number in range(3000)])
    stopped_program.start()
    assert_opens_promptly(desktop, stopped_program)
    with copy(desktop, "honest"):
        wait_for(lambda: stopped_program.texts()[0] == "honest", "the new entry")
