"""The benchmark's measurements, each on its own desktop."""

import json
import select
import statistics
import subprocess
import time
from contextlib import contextmanager

from PIL import Image
from Xlib import X

from footprint import idle_of_tree, settled_memory
from harness import pictures
from harness.apps import XTerm
from harness.desktop import Desktop
from harness.notes import NEW_STICKY_NOTE, Notes, saved_note
from harness.program import PROGRAM, Program, entry
from harness.waiting import wait_for
from harness.xclients import ClipboardOwner
from peer import CopyQ

INSIDE = PROGRAM.parent / "driftbox_bench"
SHOWINGS = 50
STARTS = 10
OPENINGS = 20
SAVED_NOTES = 200
ENTRIES = 40
TAP_INTERVAL_MS = 120
READY = {"Monitor started", "Hotkey monitors installed"}


class MapWatch:
    """Detects immediately when a window is mapped."""

    def __init__(self, desktop, window):
        self._display = desktop.connect()
        self._window = self._display.create_resource_object("window", window)
        self._window.change_attributes(event_mask=X.StructureNotifyMask)
        self._display.sync()

    def discard_events(self):
        while self._display.pending_events():
            self._display.next_event()

    def wait(self):
        """Wait until the window is mapped and return the monotonic time."""
        deadline = time.monotonic() + 10
        while time.monotonic() < deadline:
            while self._display.pending_events():
                if self._display.next_event().type == X.MapNotify:
                    return time.monotonic()
            select.select([self._display.fileno()], [], [], 1)
        raise TimeoutError("the window was not mapped")


def texts():
    return [f"entry {number}: " + "some words of a usual length " * 4 for number in range(ENTRIES)]


@contextmanager
def running_program(*, entries=None):
    """A running, settled program with a history."""
    with Desktop() as desktop:
        program = Program(desktop)
        program.write_manifest_of(
            entries or [entry(number, text) for number, text in enumerate(texts())])
        yield program.start()
        program.stop()


def show():
    """From the second key press to the mapped panel, without a caret lookup."""
    with running_program() as program:
        desktop = program.desktop
        XTerm(desktop)
        program.panel.open()
        watch = MapWatch(desktop, program.panel.window())
        durations = []
        for _ in range(SHOWINGS):
            desktop.keyboard.tap("Escape")
            program.panel.wait_until_closed()
            watch.discard_events()
            durations.append(milliseconds_of_tap(desktop, watch))
            wait_for(program.panel.has_keyboard, "the panel to have the focus")
        return statistics.median(durations), max(durations)


def milliseconds_of_tap(desktop, watch):
    desktop.keyboard.press("Control_L")
    desktop.keyboard.release("Control_L", 20)
    desktop.display.sync()
    pressed = time.monotonic()
    while time.monotonic() - pressed < TAP_INTERVAL_MS / 1000:
        time.sleep(0.001)
    pressed = time.monotonic()
    desktop.keyboard.press("Control_L")
    mapped = watch.wait()
    desktop.keyboard.release("Control_L")
    desktop.display.sync()
    return (mapped - pressed) * 1000


def show_of_peer():
    """From the start of its client, the only way to show it from outside, to its mapped window."""
    with Desktop() as desktop:
        XTerm(desktop)
        peer = CopyQ(desktop)
        peer.fill(texts())
        watch = MapWatch(desktop, peer.show_once())
        durations = []
        for _ in range(SHOWINGS):
            watch.discard_events()
            started = time.monotonic()
            client = subprocess.Popen(["copyq", "show"], env=desktop.environment,
                                      stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
            durations.append((watch.wait() - started) * 1000)
            client.wait()
            peer.client("hide")
            wait_for(lambda: not peer.window(), "CopyQ's window to be gone")
        return statistics.median(durations), max(durations)


def start():
    """From the start of the process until it monitors keys and the clipboard."""
    durations = []
    with running_program() as program:
        program.stop()
        for _ in range(STARTS):
            durations.append(_milliseconds_of_start(program.desktop))
    return statistics.median(durations)


def _milliseconds_of_start(desktop):
    waited_for = set(READY)
    started = time.monotonic()
    process = desktop.processes.start(PROGRAM, stderr=subprocess.PIPE, name="timed")
    for line in process.stderr:
        waited_for -= {message for message in waited_for if message in line.decode()}
        if not waited_for:
            break
    duration = (time.monotonic() - started) * 1000
    desktop.processes.stop(process)
    process.stderr.close()
    return duration


def start_of_peer():
    """From the start of its server until its client gets a reply, less the client's own time."""
    durations = []
    with Desktop() as desktop:
        for _ in range(STARTS):
            started = time.monotonic()
            peer = CopyQ(desktop)
            ready = time.monotonic()
            peer.answers()
            durations.append((ready - started - (time.monotonic() - ready)) * 1000)
            peer.client("exit")
            desktop.processes.stop(peer.process)
    return statistics.median(durations)


def memory():
    with running_program() as program:
        _show_once(program)
        return settled_memory(program.process.pid)


def memory_of_peer():
    with Desktop() as desktop:
        peer = CopyQ(desktop)
        peer.fill(texts())
        peer.show_once()
        return settled_memory(peer.process.pid)


def memory_of_pictures():
    """The additional memory of 100 screenshots that have all been shown."""
    with Desktop() as desktop:
        program = Program(desktop)
        program.start()
        _show_once(program)
        before = settled_memory(program.process.pid).pss
        program.stop()

        entries = [{"id": f"00000000-0000-4000-8000-{number:012X}", "kind": "image",
                    "createdAt": 700_000_000 - number} for number in range(100)]
        program.write_manifest_of(entries)
        screen = pictures.encoded(pictures.harbour().resize((3840, 2160), Image.NEAREST), "PNG")
        for item in entries:
            program.image_path(item).write_bytes(screen)
        program.start()
        program.panel.open()
        for _ in entries:
            desktop.keyboard.tap("Down", after_ms=30)
        after = settled_memory(program.process.pid).pss
        program.stop()
        return after - before


def _show_once(program):
    program.panel.open()
    program.desktop.keyboard.tap("Escape")
    program.panel.wait_until_closed()


def idle():
    with running_program() as program:
        _show_once(program)
        settled_memory(program.process.pid)
        return idle_of_tree(program.process.pid)


def idle_of_peer():
    with Desktop() as desktop:
        peer = CopyQ(desktop)
        peer.fill(texts())
        peer.show_once()
        settled_memory(peer.process.pid)
        return idle_of_tree(peer.process.pid)


def opening_of_note():
    """From the click on the button for a new note until its window has the focus."""
    with running_program() as program:
        notes = Notes(program)
        durations = []
        for _ in range(OPENINGS):
            notes.open_section()
            button = program.panel.find(NEW_STICKY_NOTE).extents().center
            program.desktop.pointer.move(*button)
            panel = program.desktop.windows.focused()
            started = time.monotonic()
            program.desktop.pointer.click(*button)
            wait_for(lambda: program.desktop.windows.focused() != panel, "the note to take typing")
            durations.append((time.monotonic() - started) * 1000)
            notes.wait_for_windows(1)
            program.desktop.keyboard.tap("w", ["Control_L"])
            notes.wait_for_windows(0)
        return statistics.median(durations)


def memory_of_notes():
    """The memory of 200 closed notes of 2,000 characters."""
    with running_program() as program:
        _show_once(program)
        before = settled_memory(program.process.pid).private
        program.stop()
        Notes(program).write_manifest(json.dumps([
            saved_note(number, textContent=f"{number} {'words of a usual length ' * 100}"[:2000])
            for number in range(SAVED_NOTES)]))
        program.start()
        _show_once(program)
        return settled_memory(program.process.pid).private - before


def inside(name):
    """The figures of a benchmark that runs in-process."""
    with Desktop() as desktop:
        return _figures(desktop.processes.run(INSIDE, name))


def screenshot():
    """The figures of capturing a detailed screenshot of 3840 by 2160 pixels."""
    picture = pictures.harbour(3840, 2160)
    noise = Image.effect_noise((960, 540), 40).resize(picture.size).convert("RGB")
    data = pictures.encoded(Image.blend(picture, noise, 0.2), "PNG")
    with Desktop() as desktop:
        process = desktop.processes.start(INSIDE, "screenshot", stdout=subprocess.PIPE, text=True)
        if process.stdout.readline().strip() != "ready":
            raise RuntimeError("the bench did not start")
        with ClipboardOwner(desktop, {"image/png": data}):
            return _figures(process.stdout.read())


def _figures(printed):
    return {name: float(value) for name, value in
            (line.split() for line in printed.splitlines() if line)}
