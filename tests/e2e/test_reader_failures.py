"""Readers without their modules or pages, and with files that cannot be saved."""

import os
import shutil
from pathlib import Path

import pytest

from harness import program as harness_program
from harness.program import PROGRAM
from harness.reader import Reader, renderers
from harness.waiting import wait_for

MODULES, RESOURCES = "lib/driftbox", "share/driftbox"
ENGINE = f"{MODULES}/driftbox_webengine.so"
DIAGRAMS = f"{RESOURCES}/MarkdownReader/mermaid.min.js"

pytestmark = pytest.mark.usefixtures("screen_reader")


@pytest.fixture
def document(desktop):
    path = desktop.folder / "doc.md"
    path.write_text("# The title\n\nSome text.\n", encoding="utf-8")
    return path


@pytest.fixture
def installed_without(desktop, monkeypatch):
    """Lays the program out once more, without one of its files."""
    def lay_out(missing):
        top, root = PROGRAM.parents[1], desktop.folder / "installed"
        shutil.copytree(top / MODULES, root / MODULES)
        shutil.copytree(top / RESOURCES, root / RESOURCES)
        (root / missing).unlink()
        (root / "bin").mkdir()
        monkeypatch.setattr(harness_program, "PROGRAM", shutil.copy(PROGRAM, root / "bin"))

    return lay_out


def assert_can_be_edited(program, document):
    """The source is there, and what is typed is saved."""
    reader = Reader(program, document)
    reader.edit()
    program.desktop.keyboard.type("x")
    wait_for(reader.has_unsaved_dot, "the dot of unsaved changes")
    reader.preview()
    wait_for(lambda: not reader.has_unsaved_dot(), "the dot to go")
    assert document.read_text(encoding="utf-8").startswith("x# The title")
    program.panel.open()


def test_without_the_engine_the_preview_stays_blank(stopped_program, document, installed_without):
    installed_without(ENGINE)
    stopped_program.expect_complaint("kAEOpenDocuments")
    stopped_program.expect_complaint("^The web engine cannot be loaded: ")
    program = stopped_program.start(str(document))
    program.wait_for_log("^The web engine cannot be loaded: ")
    assert_can_be_edited(program, document)
    said = [line for line in program.log() if "cannot be loaded" in line.message]
    assert len(said) == 1  # the second preview says nothing


def test_without_a_file_of_the_page_the_preview_stays_blank(stopped_program, document,
                                                           installed_without):
    installed_without(DIAGRAMS)
    stopped_program.expect_complaint("kAEOpenDocuments")
    program = stopped_program.start(str(document))
    assert_can_be_edited(program, document)
    assert not renderers(program.process.pid)
    assert "libQt6WebEngineCore" not in Path(f"/proc/{program.process.pid}/maps").read_text(
        encoding="utf-8")


def assert_save_fails(program, document):
    """The mark stays, the log says why in one line, and the text is not lost."""
    program.expect_complaint("kAEOpenDocuments")
    program.expect_complaint("^Save failed for doc.md: .")
    before = document.read_bytes()
    program.start_again(str(document))
    reader = Reader(program, document)
    program.wait_for_log("^Rendered")
    reader.edit()
    program.desktop.keyboard.type("unsaved ")
    wait_for(reader.has_unsaved_dot, "the dot of unsaved changes")
    reader.preview()
    program.wait_for_log("^Save failed for doc.md: .")
    reader.wait_for_text("unsaved ")
    assert reader.has_unsaved_dot()
    assert len([line for line in program.log() if "Save failed" in line.message]) == 1
    assert document.read_bytes() == before


def test_saving_to_a_read_only_disk_fails(program, document):
    """Even root may not write into the kernel's own file system."""
    document.unlink()
    document.symlink_to("/proc/version")
    assert_save_fails(program, document)
    assert document.is_symlink()


@pytest.mark.skipif(os.geteuid() == 0, reason="root may write every file")
def test_saving_to_a_read_only_file_fails(program, document):
    document.chmod(0o444)
    assert_save_fails(program, document)
