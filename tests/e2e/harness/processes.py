"""Child processes that never outlive their owner."""

import ctypes
import os
import signal
import subprocess
from contextlib import suppress

_libc = ctypes.CDLL(None)
_PR_SET_PDEATHSIG = 1


def _die_with_parent():
    _libc.prctl(_PR_SET_PDEATHSIG, signal.SIGKILL)


class Processes:
    """Starts programs in process groups of their own and stops all of them, the last one first."""

    def __init__(self, environment, log_folder):
        self.environment = environment
        self._log_folder = log_folder
        self._running = []

    def start(self, *command, name=None, environment=None, limits=None, **options):
        """Starts `command`; what it prints goes to a file named after it, unless told otherwise.

        `limits` is called in the new process before the command takes it over.
        """
        command = [str(part) for part in command]
        name = name or os.path.basename(command[0])

        def prepare():
            _die_with_parent()
            if limits:
                limits()

        with open(self._log_folder / f"{name}.log", "ab") as log:
            process = subprocess.Popen(
                command,
                env={**self.environment, **(environment or {})},
                stdin=options.pop("stdin", subprocess.DEVNULL),
                stdout=options.pop("stdout", log),
                stderr=options.pop("stderr", log),
                start_new_session=True,
                preexec_fn=prepare,
                **options,
            )
        self._running.append(process)
        return process

    def run(self, *command, **options):
        """Runs `command` to its end and returns what it printed; failure raises."""
        return subprocess.run(
            [str(part) for part in command],
            env=self.environment, check=True, capture_output=True, text=True, timeout=60, **options,
        ).stdout

    def stop(self, process):
        """Ends `process` and the processes that it started."""
        if process in self._running:
            self._running.remove(process)
        _signal_group(process, signal.SIGTERM)
        try:
            process.wait(2)
        except subprocess.TimeoutExpired:
            pass
        _signal_group(process, signal.SIGKILL)
        process.wait()

    def stop_all(self):
        while self._running:
            self.stop(self._running[-1])


def _signal_group(process, number):
    with suppress(ProcessLookupError, PermissionError):
        os.killpg(process.pid, number)


def descendants(pid):
    """The process and all that it started, as process ids."""
    found = [pid]
    with suppress(FileNotFoundError, ProcessLookupError):
        for task in os.listdir(f"/proc/{pid}/task"):
            with open(f"/proc/{pid}/task/{task}/children", encoding="ascii") as children:
                for child in children.read().split():
                    found += descendants(int(child))
    return found
