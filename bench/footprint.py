"""The memory and processor use of a process and its descendants."""

import os
import time
from dataclasses import dataclass
from pathlib import Path

from harness.processes import descendants
from harness.waiting import wait_for

SAMPLE = 10.0  # seconds


@dataclass
class Memory:
    """The memory of a process and its descendants, in MiB."""

    pss: float
    private: float


@dataclass
class Idle:
    wakeups: float  # per second
    processor_ms: float  # during the sample


def settled_memory(pid):
    """The memory of the process tree once it has been stable for two seconds."""
    samples = []

    def is_settled():
        samples.append(_memory_of_tree(pid))
        time.sleep(0.5)
        return len(samples) > 4 and abs(samples[-1].pss - samples[-5].pss) < 0.1

    wait_for(is_settled, "the memory to settle", 60)
    return samples[-1]


def _memory_of_tree(pid):
    pss = private = 0
    for process in descendants(pid):
        for line in _memory_map(process).splitlines():
            name, _, rest = line.partition(":")
            if name == "Pss":
                pss += int(rest.split()[0])
            elif name.startswith("Private_"):
                private += int(rest.split()[0])
    return Memory(pss / 1024, private / 1024)


def _memory_map(process):
    try:
        return Path(f"/proc/{process}/smaps_rollup").read_text(encoding="ascii")
    except (FileNotFoundError, ProcessLookupError):
        return ""  # the process has just exited


def idle_of_tree(pid):
    before = _activity_of_tree(pid)
    time.sleep(SAMPLE)  # what is measured
    after = _activity_of_tree(pid)
    return Idle((after[0] - before[0]) / SAMPLE, after[1] - before[1])


def _activity_of_tree(pid):
    """Voluntary context switches (each one implies a wake-up) and processor time in ms."""
    switches = nanoseconds = 0
    for process in descendants(pid):
        for task in os.listdir(f"/proc/{process}/task"):
            status = Path(f"/proc/{process}/task/{task}/status").read_text(encoding="ascii")
            switches += int(status.split("\nvoluntary_ctxt_switches:")[1].split()[0])
            schedule = Path(f"/proc/{process}/task/{task}/schedstat").read_text(encoding="ascii")
            nanoseconds += int(schedule.split()[0])
    return switches, nanoseconds / 1e6
