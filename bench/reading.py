"""Measures reading and editing Markdown files."""

import re
import statistics
import time
from datetime import datetime
from pathlib import Path

from gi.repository import Gio, GLib
from Xlib import X

import measures
from footprint import settled_memory
from harness.reader import renderers
from harness.waiting import wait_for

OPENINGS = 5
MEGABYTE = 1_000_000
WORDS = "the quick brown fox reads a long document about the history of the clipboard".split()


def document(size):
    """Realistic Markdown with sections, lists, code and tables."""
    parts, number, length = ["# A long document\n"], 0, 0
    while length < size:
        number += 1
        words = [WORDS[(number * 7 + index * 3) % len(WORDS)] for index in range(60)]
        part = (f"\n## Section {number}\n\n{' '.join(words)} *stress* `code` "
                f"[link](https://example.org/{number}).\n\n- {' '.join(words[:8])}\n"
                f"- **{' '.join(words[8:12])}**\n")
        if number % 5 == 0:
            part += "\n```cpp\n" + "".join(
                f"int value{line} = {line} * compute({line}); // words\n" for line in range(12)
            ) + "```\n"
        if number % 7 == 0:
            part += "\n| a | b |\n|---|---|\n" + "".join(
                f"| {line} | {words[line]} |\n" for line in range(6))
        parts.append(part)
        length += len(part)
    return "".join(parts)


class Opening:
    """Opens a file the way the desktop does, over D-Bus, and measures the time."""

    def __init__(self, program, path):
        self.program = program
        self.desktop = program.desktop
        self.path = Path(path)
        self._display = self.desktop.connect()
        self._display.screen().root.change_attributes(event_mask=X.SubstructureNotifyMask)
        self._display.sync()
        self._mark = len(program.log())
        bus = Gio.DBusConnection.new_for_address_sync(
            self.desktop.environment["DBUS_SESSION_BUS_ADDRESS"],
            Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT
            | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION, None, None)
        self._requested = time.monotonic()
        self._requested_at = datetime.now()
        bus.call("app.driftbox", "/app/driftbox", "org.freedesktop.Application", "Open",
                 GLib.Variant("(asa{sv})", ([self.path.as_uri()], {})), None,
                 Gio.DBusCallFlags.NONE, -1, None, None)
        bus.flush_sync(None)

    def window_ms(self):
        """Until the window is mapped."""
        deadline = time.monotonic() + 10
        while time.monotonic() < deadline:
            while self._display.pending_events():
                if self._display.next_event().type == X.MapNotify:
                    return (time.monotonic() - self._requested) * 1000
            time.sleep(0.001)
        raise TimeoutError("no window was mapped")

    def shown_ms(self):
        """Until the page shows the beginning of the document, according to the log."""
        return self._logged_ms("Shown after")

    def rendered_ms(self):
        """Until the page shows the whole document, according to the log."""
        return self._logged_ms("Rendered after")

    def _logged_ms(self, message):
        log = self.desktop.folder / "logs/driftbox.log"

        def line():
            lines = log.read_text(encoding="utf-8").splitlines()[self._mark:]
            return next((text for text in lines if message in text), None)

        stamp = re.match(r"\S+", wait_for(line, message, 120))[0]
        return (datetime.fromisoformat(stamp) - self._requested_at).total_seconds() * 1000


def opening(size, openings=OPENINGS):
    """The figures of opening a file for the first time, and the medians of opening it again."""
    with measures.running_program() as program:
        path = program.desktop.folder / "doc.md"
        path.write_text(document(size), encoding="utf-8")
        window_times, shown_times, rendered_times = [], [], []
        for _ in range(openings):
            opened = Opening(program, path)
            window_times.append(opened.window_ms())
            shown_times.append(opened.shown_ms())
            rendered_times.append(opened.rendered_ms())
            _close(program, path)
        return {"window_first": window_times[0],
                "window": statistics.median(window_times[1:] or window_times),
                "shown_first": shown_times[0], "rendered_first": rendered_times[0],
                "rendered": statistics.median(rendered_times[1:] or rendered_times)}


def _close(program, path):
    windows = program.desktop.windows
    window, = windows.titled(path.name)
    windows.close(window)
    wait_for(lambda: not windows.is_viewable(window), "the window to close")


def panel_meanwhile():
    """The double tap while the first document of 1 MB is being opened."""
    with measures.running_program() as program:
        desktop = program.desktop
        path = desktop.folder / "doc.md"
        path.write_text(document(MEGABYTE), encoding="utf-8")
        program.panel.open()
        watch = measures.MapWatch(desktop, program.panel.window())
        desktop.keyboard.tap("Escape")
        program.panel.wait_until_closed()
        watch.discard_events()
        opened = Opening(program, path)
        opened.window_ms()
        return measures.milliseconds_of_tap(desktop, watch)


def memory():
    """The memory of all processes before, during and after reading, and the leftover renderers."""
    with measures.running_program() as program:
        pid = program.process.pid
        path = program.desktop.folder / "doc.md"
        path.write_text(document(MEGABYTE), encoding="utf-8")
        before = settled_memory(pid).pss
        Opening(program, path).rendered_ms()
        during = settled_memory(pid).pss
        _close(program, path)
        wait_for(lambda: not renderers(pid), "the renderers to end")
        after = settled_memory(pid)
        return {"before": before, "during": during, "after": after.pss,
                "after_private": after.private, "left": len(renderers(pid))}


def rows():
    """Yields the arguments of each row of the table."""
    small, large = opening(10_000), opening(MEGABYTE)
    yield "reader: 10 kB, window, first", "ms", small["window_first"], 150
    yield "reader: 10 kB, rendered, first", "ms", small["rendered_first"]
    yield "reader: 10 kB, rendered, later", "ms", small["rendered"]
    yield "reader: 1 MB, window, first", "ms", large["window_first"], 150
    yield "reader: 1 MB, window, later", "ms", large["window"], 150
    yield "reader: 1 MB, rendered, first", "ms", large["rendered_first"], 1500
    yield "reader: 1 MB, rendered, later", "ms", large["rendered"], 1500
    largest = opening(10 * MEGABYTE, 1)
    yield "reader: 10 MB, first screen", "ms", largest["shown_first"], 2000
    yield "reader: 10 MB, rendered, first", "ms", largest["rendered_first"]
    yield "reader: tap to panel meanwhile", "ms", panel_meanwhile(), 30
    figures = measures.inside("reader")
    yield "reader: editor of 1 MB opened", "ms", figures["reader_editor_opened"]
    yield "reader: key in the editor of 1 MB, median", "ms", figures["reader_keystroke_median"], 16
    yield "reader: key in the editor of 1 MB, worst", "ms", figures["reader_keystroke_worst"], 16
    reading = memory()
    yield "reader: memory before", "MiB", reading["before"]
    yield "reader: memory during", "MiB", reading["during"]
    yield "reader: memory after", "MiB", reading["after"]
    yield "reader: of it private", "MiB", reading["after_private"]
    yield "reader: renderers left", "", reading["left"], 0
