"""Measures how the text in pictures is read, beside the `tesseract` command."""

import subprocess
from pathlib import Path

from harness.program import PROGRAM

BENCH = PROGRAM.parent / "driftbox_ocr_bench"
SAMPLES = Path(__file__).parent / "ocr/samples"
SCRIPTS = ("english", "simplified", "traditional", "japanese", "korean", "mixed")


def figures():
    """What the bench of recognition prints, by name. Those of the command end in `_command`."""
    printed = subprocess.run([BENCH, SAMPLES], check=True, stdout=subprocess.PIPE,
                             text=True).stdout
    return {name: float(value) for name, value in
            (line.split() for line in printed.splitlines() if line)}


def rows():
    """The arguments of the rows of the table, one after the other."""
    measured = figures()
    allowed = measured["error_all_command"] / 2
    yield ("text: characters read wrong", "%", measured["error_all"], allowed,
           measured["error_all_command"], True)
    yield ("text: of them without blanks", "%", measured["error_all_without_blanks"], None,
           measured["error_all_without_blanks_command"])
    yield ("text: English at 14 px and above", "%", measured["error_english_from_14"], 2,
           measured["error_english_from_14_command"])
    for script in SCRIPTS:
        yield (f"text: {script}, all sizes", "%", measured[f"error_{script}"], None,
               measured[f"error_{script}_command"])
    yield ("text: screenshot of 1280x800", "ms", measured["screenshot_ms"], 3000,
           measured["screenshot_ms_command"], True)
    yield ("text: main thread held meanwhile, longest", "ms",
           measured["screenshot_held_longest_ms"], 16)
    yield ("text: memory kept 5 s later", "MiB", measured["memory_kept_mib"], 10)
