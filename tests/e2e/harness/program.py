"""The program under test, in the home of its desktop."""

import json
import os
import re
import signal
import time
from dataclasses import dataclass
from pathlib import Path

from .panel import Panel
from .waiting import wait_for, wait_for_equal

PROJECT = Path(__file__).resolve().parents[3]
PROGRAM = Path(os.environ.get("DRIFTBOX_PROGRAM", PROJECT / "build/release/bin/driftbox"))

_LINE = re.compile(
    r"(?P<time>\S+) (?P<level>debug|info|notice|error|fatal) app\.driftbox:(?P<category>\S+) "
    r"(?P<message>.*)")
_READY = ("Monitor started", "Hotkey monitors installed")


@dataclass(frozen=True)
class LogLine:
    level: str
    category: str
    message: str

    @property
    def is_complaint(self):
        return self.level not in ("debug", "info")


class Program:
    """Starts and ends the program; reads what it logs and what it keeps on disk.

    The files of one desktop outlive the process, so that a second start finds them.
    """

    def __init__(self, desktop):
        self.desktop = desktop
        self.process = None
        self.panel = Panel(self)
        self.root = Path(desktop.environment["XDG_DATA_HOME"]) / "Driftbox"
        self.images = self.root / "images"
        self.manifest_path = self.root / "manifest.json"
        self.defaults_path = Path(desktop.environment["XDG_CONFIG_HOME"]) / "driftbox/defaults.json"
        self._log_path = desktop.folder / "logs/driftbox.log"
        self._expected = []
        self._tolerated = []

    # Life

    def start(self, *arguments, ready=True, **options):
        """Starts the program and waits until it sees the clipboard and the keyboard."""
        mark = len(self.log())
        self.process = self.desktop.processes.start(PROGRAM, *arguments, name="driftbox", **options)
        if ready:
            for message in _READY:
                self.wait_for_log(message, mark)
        return self

    def start_again(self, *arguments):
        """Starts the program once more beside the running one; returns its exit code."""
        second = self.desktop.processes.start(PROGRAM, *arguments, name="driftbox-second")
        return second.wait(20)

    def kill(self):
        """Ends it without a warning."""
        self.process.send_signal(signal.SIGKILL)
        self.process.wait()

    def stop(self):
        self.desktop.processes.stop(self.process)

    def restart(self):
        self.stop()
        return self.start()

    @property
    def is_running(self):
        return self.process is not None and self.process.poll() is None

    # Log

    def log(self):
        """What it logged so far, all starts together. Text that is no log line is a complaint."""
        if not self._log_path.exists():
            return []
        lines = self._log_path.read_text(encoding="utf-8", errors="replace").splitlines()
        return [_parse(line) for line in lines]

    def wait_for_log(self, message, after=0):
        """Waits for a line with this message behind the first `after` lines; returns it."""
        return wait_for(lambda: next((line for line in self.log()[after:]
                                      if re.search(message, line.message)), None),
                        f"the log line {message!r}")

    def expect_complaint(self, pattern):
        """A notice or error that the test provokes; the test fails when it is missing."""
        self._expected.append(re.compile(pattern))

    def tolerate_complaint(self, pattern):
        """A notice or error that depends on timing and need not appear."""
        self._tolerated.append(re.compile(pattern))

    def complaints(self):
        return [line for line in self.log() if line.is_complaint]

    def unexpected_complaints(self):
        return [line for line in self.complaints()
                if not any(pattern.search(line.message)
                           for pattern in self._expected + self._tolerated)]

    def missing_complaints(self):
        """The patterns of expected complaints that no line matches."""
        return [pattern.pattern for pattern in self._expected
                if not any(pattern.search(line.message) for line in self.complaints())]

    # Clipboard

    def look_at_clipboard(self):
        """Makes it capture what it has read so far, which it does whenever the panel opens."""
        self.panel.open()
        self.desktop.keyboard.tap("Escape")
        self.panel.wait_until_closed()

    # Panel

    def assert_showed_panel(self, times):
        """Fails unless it has shown the panel, or begun to, this many times."""
        shown = [line for line in self.log() if line.message.startswith("Panel show: ")]
        assert len(shown) == times, shown

    # Files

    def write_defaults(self, defaults):
        self.defaults_path.parent.mkdir(parents=True, exist_ok=True)
        self.defaults_path.write_text(json.dumps(defaults), encoding="utf-8")

    def write_manifest(self, text):
        self.root.mkdir(parents=True, exist_ok=True)
        self.manifest_path.write_text(text, encoding="utf-8")

    def write_manifest_of(self, entries):
        self.write_manifest(json.dumps(entries))

    def manifest(self):
        """The entries on disk, newest first. A manifest that is not whole raises."""
        if not self.manifest_path.exists():
            return []
        return json.loads(self.manifest_path.read_text(encoding="utf-8"))

    def texts(self):
        """The texts on disk, newest first, none for pictures."""
        return [entry.get("textContent") for entry in self.manifest()]

    def wait_for_texts(self, expected):
        wait_for_equal(self.texts, expected, "the texts of the manifest")

    def wait_for_entries(self, count):
        wait_for_equal(lambda: len(self.manifest()), count, "the number of entries")
        return self.manifest()

    def image_path(self, entry):
        return self.images / (entry.get("imageFileName") or f"{entry['id']}.png")


def entry(number, text, **more):
    """An entry as a manifest has it, made by hand."""
    return {"id": f"00000000-0000-4000-8000-{number:012X}", "kind": "text", "textContent": text,
            "createdAt": time.time() - 978307200 - number, **more}


def _parse(line):
    match = _LINE.fullmatch(line)
    if not match:
        return LogLine("raw", "", line)
    return LogLine(match["level"], match["category"], match["message"])
