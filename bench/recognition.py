"""Measures text recognition, compared with the `tesseract` command."""

import subprocess
import tempfile
import time
from pathlib import Path

from harness.apps import GtkEditor
from harness.desktop import Desktop
from harness.program import PROGRAM, Program
from harness.waiting import wait_for

BENCH = PROGRAM.parent / "driftbox_ocr_bench"
SAMPLES = Path(__file__).parent / "ocr/samples"
SCRIPTS = ("english", "simplified", "traditional", "japanese", "korean", "mixed")
ACTION = "Paste text in image (OCR)"
SETTLING = 5.0  # seconds


def rows():
    """Yields the arguments of each row of the table. The peer is the command."""
    with tempfile.TemporaryDirectory() as folder:
        measured = _figures(folder)
        kept = _memory_kept(Path(folder) / "screenshot.png")

    def both(name):
        return measured[name], measured[f"{name}_command"]

    def error(name, budget):
        own, command = both(f"error_{name}")
        return own, budget, command

    half = measured["error_all_command"] / 2
    yield ("text: characters read wrong", "%", *error("all", half))
    yield ("text: of them without spaces", "%", *error("all_without_spaces", None))
    yield ("text: English at 14 px and above", "%", *error("english_from_14", 2))
    for script in SCRIPTS:
        yield (f"text: {script}, all sizes", "%", *error(script, None))
    own, command = both("screenshot_ms")
    yield ("text: screenshot of 1280x800", "ms", own, 3000, command, True)
    yield ("text: main thread blocked meanwhile, max", "ms",
           measured["screenshot_blocked_max_ms"], 16)
    yield ("text: resident memory kept 5 s later", "MiB", kept, 10)


def _figures(folder):
    """The figures of the recognition benchmark, by name. Leaves its pictures in the folder."""
    printed = subprocess.run([BENCH, SAMPLES, folder], check=True, stdout=subprocess.PIPE,
                             text=True).stdout
    return {name: float(value) for name, value in
            (line.split() for line in printed.splitlines() if line)}


def _memory_kept(picture):
    """The growth of the program's memory after it has read its first picture."""
    item = {"id": "00000000-0000-4000-8000-000000000001", "kind": "image", "createdAt": 700_000_000}
    with Desktop() as desktop:
        program = Program(desktop)
        program.write_manifest_of([item])
        program.images.mkdir()
        program.image_path(item).write_bytes(picture.read_bytes())
        program.start()
        editor = GtkEditor(desktop)
        program.panel.open()
        (name,) = program.panel.row_names()
        before = _resident(program.process.pid)
        program.panel.click_action(name, ACTION)
        wait_for(editor.text, "the text to be pasted", 60)
        time.sleep(SETTLING)  # what is measured
        return _resident(program.process.pid) - before


def _resident(pid):
    for line in Path(f"/proc/{pid}/smaps_rollup").read_text(encoding="ascii").splitlines():
        if line.startswith("Rss:"):
            return int(line.split()[1]) / 1024
    raise RuntimeError("smaps_rollup has no resident size")
