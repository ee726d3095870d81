"""CopyQ, a comparable program."""

import subprocess

from harness.waiting import wait_for


class CopyQ:
    """The peer's server on a desktop, controlled by its own client."""

    def __init__(self, desktop):
        self._desktop = desktop
        self.process = desktop.processes.start("copyq")
        wait_for(self.answers, "CopyQ to answer", 30)

    def answers(self):
        return subprocess.run(["copyq", "eval", "1"], env=self._desktop.environment,
                              capture_output=True).returncode == 0

    def client(self, *command):
        return self._desktop.processes.run("copyq", *command)

    def window(self):
        return next(iter(self._desktop.windows.of_process(self.process.pid)), None)

    def fill(self, texts):
        self.client("add", *texts)

    def show_once(self):
        self.client("show")
        wait_for(self.window, "CopyQ's window")
        window = self.window()
        self.client("hide")
        wait_for(lambda: not self.window(), "CopyQ's window to be gone")
        return window
