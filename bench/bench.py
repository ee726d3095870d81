#!/usr/bin/python3
"""Measures the release build against its budgets, beside CopyQ where both do the same work.

    bench.py [NAME...]    only the measurements whose names start with one of these

Prints a table and writes bench/results.json. The budgets apply to an otherwise idle machine;
exceeding them is not an error.
"""

import json
import os
import platform
import sys
from dataclasses import asdict, dataclass
from pathlib import Path

PROJECT = Path(__file__).resolve().parents[1]
sys.path.insert(0, str(PROJECT / "tests/e2e"))

import measures  # noqa: E402
import reading  # noqa: E402
import recognition  # noqa: E402
from harness.program import PROGRAM  # noqa: E402

RESULTS = PROJECT / "bench/results.json"
TICK = 10  # ms; the resolution of tools that sample the processor time

NOTES = {"keystroke": "key with 200 saved", "lines": "key in 100,000, in lines",
         "paragraph": "key in 100,000, one paragraph"}


@dataclass
class Row:
    """One line of the table; `peer` is the figure of CopyQ or, for text, the tesseract command."""

    name: str
    unit: str
    value: float
    budget: float | None = None
    peer: float | None = None
    must_beat_peer: bool = False

    @property
    def is_reached(self):
        within = self.budget is None or self.value <= self.budget
        ahead = not self.must_beat_peer or self.peer is None or self.value <= self.peer
        return within and ahead

    def cells(self):
        def figure(value):
            return "" if value is None else f"{value:.1f} {self.unit}"
        return (self.name, figure(self.budget), figure(self.value), figure(self.peer),
                "" if self.is_reached else "over")


def rows_of(wanted):
    """Runs the wanted measurements in turn and yields the lines of the table."""
    def is_wanted(name):
        return not wanted or any(name.startswith(prefix) for prefix in wanted)

    if is_wanted("show"):
        median, worst = measures.show()
        peer_median, peer_worst = measures.show_of_peer()
        yield Row("show: tap to panel, median", "ms", median, 16, peer_median, True)
        yield Row("show: tap to panel, worst of 50", "ms", worst, 30, peer_worst)
    if is_wanted("start"):
        yield Row("start: to hotkey and monitor ready", "ms", measures.start(), 120,
                  measures.start_of_peer(), True)
    if is_wanted("memory"):
        own, peer = measures.memory(), measures.memory_of_peer()
        yield Row("memory: 40 entries, shown once, PSS", "MiB", own.pss, None, peer.pss, True)
        yield Row("memory: of it private", "MiB", own.private, None, peer.private, True)
        yield Row("memory: 100 screenshots more", "MiB", measures.memory_of_pictures(), 20)
    if is_wanted("idle"):
        own, peer = measures.idle(), measures.idle_of_peer()
        yield Row("idle: wake-ups a second", "/s", own.wakeups, 3, peer.wakeups)
        yield Row("idle: processor time in 10 s", "ms", own.processor_ms, TICK, peer.processor_ms)
    if is_wanted("search"):
        figures = measures.inside("search")
        yield Row("search: keystroke over 10,000, median", "ms",
                  figures["search_keystroke_median"], 16)
        yield Row("search: keystroke over 10,000, worst", "ms",
                  figures["search_keystroke_worst"], 16)
    if is_wanted("capture"):
        figures = measures.inside("capture")
        yield Row("capture: at 200 entries, median", "ms", figures["capture_median"], 5)
        yield Row("capture: at 200 entries, worst", "ms", figures["capture_worst"])
    if is_wanted("screenshot"):
        figures = measures.screenshot()
        yield Row("screenshot: main thread blocked, max", "ms",
                  figures["screenshot_blocked_max"], 16)
        yield Row("screenshot: captured after", "ms", figures["screenshot_captured_after"])
    if is_wanted("notes"):
        figures = measures.inside("notes")
        yield Row("notes: a new one takes typing, median", "ms",
                  measures.opening_of_note(), 50)
        for kind, budget in (("keystroke", 8), ("lines", 8), ("paragraph", 16)):
            yield Row(f"notes: {NOTES[kind]}, median", "ms", figures[f"notes_{kind}_median"],
                      budget)
            yield Row(f"notes: {NOTES[kind]}, worst", "ms", figures[f"notes_{kind}_worst"])
        figures = measures.inside("notesList")
        yield Row("notes: scrolling 1,000 listed, worst", "ms", figures["notes_scrolling_worst"], 16)
        yield Row("notes: memory of 200 closed", "MiB", measures.memory_of_notes(), 2)
    if is_wanted("text"):
        for row in recognition.rows():
            yield Row(*row)
    if is_wanted("reader"):
        for row in reading.rows():
            yield Row(*row)


def print_table(lines):
    header = ("what", "budget", "Drift Box", "peer", "")
    widths = [max(len(line[column]) for line in [header, *lines]) for column in range(5)]
    for line in [header, *lines]:
        print(f"{line[0]:<{widths[0]}}  " + "  ".join(
            f"{cell:>{width}}" for cell, width in zip(line[1:4], widths[1:4])) + f"  {line[4]}")


def main():
    if not PROGRAM.exists():
        sys.exit(f"{PROGRAM} is not built: ./dev build release")
    rows = []
    for row in rows_of(sys.argv[1:]):
        print(f"  {row.name}: {row.value:.1f} {row.unit}", file=sys.stderr, flush=True)
        rows.append(row)
    print_table([row.cells() for row in rows])
    load = os.getloadavg()[0]
    if load > os.cpu_count():
        print(f"The machine was busy (load {load:.1f}): the times are too long.")
    RESULTS.write_text(json.dumps(
        {"machine": platform.processor() or platform.machine(), "cores": os.cpu_count(),
         "load": load, "results": [{**asdict(row), "reached": row.is_reached} for row in rows]},
        indent=2) + "\n", encoding="utf-8")


if __name__ == "__main__":
    main()
