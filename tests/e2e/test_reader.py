"""Markdown files open in windows of their own, are read, edited and saved."""

import os
import re
import stat
from pathlib import Path

import pytest

from harness.reader import Reader, renderers
from harness.statusbar import StatusBar
from harness.waiting import wait_for, wait_for_equal

pytestmark = pytest.mark.usefixtures("screen_reader")


@pytest.fixture
def folder(desktop):
    folder = desktop.folder / "documents"
    folder.mkdir()
    return folder


@pytest.fixture
def document(folder):
    path = folder / "doc.md"
    path.write_text("# The title\n\nSome text.\n", encoding="utf-8")
    return path


def test_a_second_start_hands_over_its_markdown_files(program, folder, document):
    capitals = folder / "a.MD"
    capitals.write_text("# Capitals\n", encoding="utf-8")
    notes = folder / "notes.txt"
    notes.write_text("no Markdown", encoding="utf-8")
    program.expect_complaint("^kAEOpenDocuments: a.MD, notes.txt$")
    assert program.start_again(str(capitals), str(notes)) == 0
    program.wait_for_log("^Opened a.MD$")
    Reader(program, capitals).wait_for_text("Capitals")
    assert not [line for line in program.log() if "notes.txt" in line.message
                and line.message.startswith("Opened")]
    assert len(renderers(program.process.pid)) == 1


def test_the_first_start_opens_the_files_it_is_given(stopped_program, document):
    stopped_program.expect_complaint("^kAEOpenDocuments: doc.md$")
    stopped_program.start(str(document))
    reader = Reader(stopped_program, document)
    reader.wait_for_text("The title")
    wait_for(lambda: stopped_program.desktop.windows.has_keyboard(reader.window), "the keyboard")
    geometry = stopped_program.desktop.windows.geometry(reader.window)
    assert (geometry.width, geometry.height) == (780, 640)


def test_opening_a_file_again_raises_its_window(desktop, program, document):
    program.expect_complaint("kAEOpenDocuments")
    program.start_again(str(document))
    reader = Reader(program, document)
    other = document.with_name("other.md")
    other.write_text("# Other\n", encoding="utf-8")
    program.start_again(str(other))
    second = Reader(program, other)
    wait_for(lambda: desktop.windows.has_keyboard(second.window), "the second window's keyboard")
    document.write_text("changed meanwhile", encoding="utf-8")
    program.start_again(f"{document.parent}/./sub/../doc.md")
    wait_for(lambda: desktop.windows.has_keyboard(reader.window), "the keyboard")
    assert len(reader.windows()) == 1
    reader.wait_for_text("The title")


def test_typing_is_saved_on_leaving_the_editor(desktop, program, document):
    document.chmod(0o640)
    link = document.with_name("link.md")
    link.symlink_to("doc.md")
    program.expect_complaint("kAEOpenDocuments")
    program.start_again(str(link))
    reader = Reader(program, link)
    reader.wait_for_text("The title")
    assert not reader.has_unsaved_dot()
    reader.edit()
    desktop.keyboard.type("x")
    wait_for(reader.has_unsaved_dot, "the dot of unsaved changes")
    assert document.read_text(encoding="utf-8").startswith("# The title")
    reader.preview()
    wait_for(lambda: not reader.has_unsaved_dot(), "the dot to go")
    assert document.read_text(encoding="utf-8") == "x# The title\n\nSome text.\n"
    assert stat.S_IMODE(document.stat().st_mode) == 0o640
    assert link.is_symlink()
    reader.wait_for_text("x# The title")


def test_closing_saves_without_asking_and_leaves_no_process(desktop, program, document):
    program.expect_complaint("kAEOpenDocuments")
    program.start_again(str(document))
    reader = Reader(program, document)
    reader.wait_for_text("The title")
    reader.edit()
    desktop.keyboard.type("new ")
    wait_for(reader.has_unsaved_dot, "the dot of unsaved changes")
    reader.close()
    wait_for_equal(lambda: document.read_text(encoding="utf-8"),
                   "new # The title\n\nSome text.\n", "the saved text")
    wait_for_equal(lambda: renderers(program.process.pid), [], "the processes of the engine")
    assert program.is_running
    program.panel.open()


def test_saving_fails_while_the_folder_is_missing(desktop, program, folder, document):
    program.expect_complaint("kAEOpenDocuments")
    program.expect_complaint("Save failed for doc.md: ")
    program.start_again(str(document))
    reader = Reader(program, document)
    reader.edit()
    desktop.keyboard.type("x")
    wait_for(reader.has_unsaved_dot, "the dot of unsaved changes")
    document.unlink()
    folder.rmdir()
    reader.preview()
    program.wait_for_log("Save failed for doc.md: ")
    reader.wait_for_text("x# The title")
    assert reader.has_unsaved_dot()
    folder.mkdir()
    reader.edit()
    reader.preview()
    wait_for(lambda: not reader.has_unsaved_dot(), "the dot to go")
    assert document.read_text(encoding="utf-8") == "x# The title\n\nSome text.\n"


# The content of each file and the complaint that opening it causes.
FILES = {
    "latin.md": (b"caf\xe9", r"^Read latin.md as Latin-1 \(not UTF-8\)$"),
    "binary.md": (bytes(range(256)) * 64, r"^Read binary.md as Latin-1 \(not UTF-8\)$"),
    "empty.md": (b"", None),
    "missing.md": (None, "^Could not read missing.md$"),
    "folder.md": ("folder", "^Could not read folder.md$"),
    "pipe.md": ("pipe", "^Could not read pipe.md$"),
}


@pytest.mark.parametrize("name", FILES)
def test_files_of_every_kind_open(program, folder, name):
    content, complaint = FILES[name]
    path = folder / name
    if content == "folder":
        path.mkdir()
    elif content == "pipe":
        os.mkfifo(path)
    elif content is not None:
        path.write_bytes(content)
    program.expect_complaint("kAEOpenDocuments")
    if complaint:
        program.expect_complaint(complaint)
    program.start_again(str(path))
    reader = Reader(program, path)
    if complaint:
        program.wait_for_log(complaint)
    program.wait_for_log("^Rendered")
    if name == "latin.md":
        reader.wait_for_text("café")
    reader.close()
    program.panel.open()


def test_reading_loads_no_graphics_drivers(program, document):
    program.expect_complaint("kAEOpenDocuments")
    program.start_again(str(document))
    Reader(program, document).wait_for_text("The title")
    libraries = Path(f"/proc/{program.process.pid}/maps").read_text(encoding="utf-8")
    assert "libQt6WebEngineCore" in libraries
    assert not re.search(r"_dri\.so|libLLVM", libraries)


def resident(pid, library):
    """How much of a library is in the process's memory, in KiB."""
    areas = Path(f"/proc/{pid}/smaps").read_text(encoding="utf-8")
    sizes = re.findall(rf"{library}.*\n(?:[A-Z].*\n)*?Rss: +(\d+) kB", areas)
    return sum(map(int, sizes))


def test_the_memory_of_the_engine_is_released_after_the_last_document(program, document):
    pid = program.process.pid
    program.expect_complaint("kAEOpenDocuments")
    program.start_again(str(document))
    reader = Reader(program, document)
    reader.wait_for_text("The title")
    at_work = resident(pid, "libQt6WebEngineCore")
    reader.close()
    wait_for(lambda: resident(pid, "libQt6WebEngineCore") < at_work / 3, "the memory given back")
    program.start_again(str(document))
    Reader(program, document).wait_for_text("The title")


def test_a_crashed_page_is_rendered_again(program, document):
    program.expect_complaint("kAEOpenDocuments")
    program.expect_complaint("The web process crashed")
    program.start_again(str(document))
    reader = Reader(program, document)
    reader.wait_for_text("The title")
    mark = len(program.log())
    os.kill(renderers(program.process.pid)[0], 11)
    program.wait_for_log("^Rendered", mark)
    reader.wait_for_text("The title")


def test_quitting_saves_open_documents(desktop, stopped_program, document):
    bar = StatusBar(desktop)
    program = stopped_program.start()
    item = bar.item()
    program.expect_complaint("kAEOpenDocuments")
    program.start_again(str(document))
    reader = Reader(program, document)
    reader.wait_for_text("The title")
    reader.edit()
    desktop.keyboard.type("x")
    wait_for(reader.has_unsaved_dot, "the dot of unsaved changes")
    item.choose("Quit Drift Box")
    assert program.process.wait(10) == 0
    assert document.read_text(encoding="utf-8").startswith("x# The title")


def test_quitting_ends_the_processes_of_pages(desktop, stopped_program, document):
    bar = StatusBar(desktop)
    program = stopped_program.start()
    item = bar.item()
    program.expect_complaint("kAEOpenDocuments")
    program.start_again(str(document))
    Reader(program, document).wait_for_text("The title")
    page, = renderers(program.process.pid)
    item.choose("Quit Drift Box")
    assert program.process.wait(10) == 0
    wait_for(lambda: not os.path.exists(f"/proc/{page}"), "the process of the page to end")


def test_the_dialog_opens_the_chosen_file(desktop, stopped_program, document):
    bar = StatusBar(desktop)
    program = stopped_program.start()
    bar.item().choose("Open Markdown…")
    dialog = wait_for(lambda: next(iter(desktop.windows.titled("Open Markdown")), None), "the dialog")
    wait_for(lambda: desktop.windows.has_keyboard(dialog), "the keyboard")
    desktop.keyboard.type(str(document))
    desktop.keyboard.tap("Return")
    program.wait_for_log("^Opened doc.md$")
    Reader(program, document).wait_for_text("The title")
