"""Broken, foreign and unwritable files: nothing saved is lost."""

import resource
import signal
import time

import pytest

from harness.failures import assert_opens_promptly, copy, wait_for_one_complaint
from harness.program import LogLine, entry
from harness.settings import HOTKEY, LAUNCH, Settings
from harness.waiting import wait_for
from harness.xclients import ClipboardOwner

ID = '"id":"00000000-0000-4000-8000-000000000001"'

# The content of the file and the problem that is logged.
_CORRUPT_MANIFESTS = {
    "empty": ("", "'[' or '{' expected near end of file at line 1, column 0"),
    "truncated": ("[", "']' expected near end of file at line 1, column 1"),
    "cut in a key": ('[{"id"', "':' expected near end of file at line 1, column 6"),
    "nonsense": ("nonsense", "'[' or '{' expected at line 1, column 8"),
    "object": ('{"a": 1}', "not an array"),
    "deep": ("[" * 100_000, "maximum parsing depth reached at line 1, column 2049"),
    "kind": (f'[{{{ID},"kind":"file","createdAt":1}}]', 'item 0: "kind" is malformed'),
    "instant": (f'[{{{ID},"kind":"text"}}]', 'item 0: "createdAt" is missing'),
    "id": ('[{"id":"../../etc/passwd","kind":"image","createdAt":1}]',
           'item 0: "id" is malformed'),
}


@pytest.mark.parametrize(("text", "problem"), _CORRUPT_MANIFESTS.values(),
                         ids=_CORRUPT_MANIFESTS.keys())
def test_a_corrupt_manifest_starts_empty_and_is_kept_aside(desktop, stopped_program, text, problem):
    stopped_program.expect_complaint("^Manifest corrupt, starting empty: ")
    stopped_program.write_manifest(text)
    stopped_program.start()
    assert stopped_program.complaints() == [LogLine(
        "error", "FileClipboardStore", f"Manifest corrupt, starting empty: {problem}")]
    stopped_program.panel.open()
    assert stopped_program.panel.shows("0 total")
    assert stopped_program.manifest_path.read_text(encoding="utf-8") == text
    with copy(desktop, "honest"):
        wait_for(lambda: stopped_program.manifest_path.read_text(encoding="utf-8") != text,
                 "a new manifest")
    assert stopped_program.texts() == ["honest"]
    aside = stopped_program.root / "manifest.corrupt.json"
    assert aside.read_text(encoding="utf-8") == text


def test_a_manifest_cannot_delete_files_outside_its_folder(desktop, stopped_program):
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


_UNREADABLE_SETTINGS = {
    "empty": ("", "'[' or '{' expected near end of file at line 1, column 0"),
    "no JSON": ("no JSON", "'[' or '{' expected at line 1, column 2"),
    "truncated": ('{"settings.clipboardCapacity": 5, "settings.hotkeyThresholdMs": 450',
                  "'}' expected near end of file at line 1, column 67"),
    "array": ('[{"settings.clipboardCapacity": 5}]', "not an object"),
}


@pytest.mark.parametrize(("text", "problem"), _UNREADABLE_SETTINGS.values(),
                         ids=_UNREADABLE_SETTINGS.keys())
def test_unreadable_settings_fall_back_to_defaults_and_are_kept_aside(stopped_program, text, problem):
    stopped_program.expect_complaint("^Settings unreadable, using defaults: ")
    stopped_program.defaults_path.parent.mkdir(parents=True)
    stopped_program.defaults_path.write_text(text, encoding="utf-8")
    stopped_program.start()
    assert stopped_program.complaints() == [LogLine(
        "error", "JsonUserDefaults", f"Settings unreadable, using defaults: {problem}")]

    settings = Settings(stopped_program).open_from_panel()
    assert settings.find("check box", HOTKEY).has_state("checked")
    assert not settings.find("check box", LAUNCH).has_state("checked")
    assert settings.find("slider").value() == 300
    settings.choose("Notes")
    assert settings.find("radio button", "Yellow").has_state("checked")
    settings.choose("Clipboard")
    stepper = settings.find("spin box")
    assert stepper.value() == 30
    assert stopped_program.defaults_path.read_text(encoding="utf-8") == text

    stepper.set_value(100)
    wait_for(lambda: stopped_program.defaults_path.read_text(encoding="utf-8") != text,
             "new settings")
    assert settings.stored("clipboardCapacity") == 100
    aside = stopped_program.defaults_path.with_name("defaults.corrupt.json")
    assert aside.read_text(encoding="utf-8") == text


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


def test_the_manifest_survives_a_kill_at_any_moment(desktop, stopped_program, picture):
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


def test_a_history_of_thousands_of_entries_opens_promptly(desktop, stopped_program):
    stopped_program.write_manifest_of(
        [entry(number, f"entry {number} " + "x" * 500) for number in range(3000)])
    stopped_program.start()
    assert_opens_promptly(desktop, stopped_program)
    with copy(desktop, "honest"):
        wait_for(lambda: stopped_program.texts()[0] == "honest", "the new entry")
