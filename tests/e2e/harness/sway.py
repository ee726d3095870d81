"""A private Wayland session: sway without a screen to look at, with its own X server."""

import os
import shutil
import tempfile
from pathlib import Path

from .desktop import Desktop
from .keys import Keyboard, Pointer
from .waiting import wait_for
from .windows import Windows

_NOBODY = 65534  # sway refuses to run as root

_CONFIGURATION = """
output HEADLESS-1 resolution 1440x900 position 0 0
focus_follows_mouse no
xwayland force
# The tests may run as root, who is another user to the X server.
exec xhost +si:localuser:root && printf '%s %s' "$WAYLAND_DISPLAY" "$DISPLAY" > {answer}.new && mv {answer}.new {answer}
"""


class SwayDesktop(Desktop):
    """A running sway session; a context manager, as every desktop."""

    def __init__(self):
        super().__init__(window_manager="sway")
        self._runtime = Path(tempfile.mkdtemp(prefix="driftbox-sway-"))

    def stop(self):
        super().stop()
        shutil.rmtree(self._runtime, ignore_errors=True)

    def start_window_manager(self):
        """The compositor manages the windows."""

    def copy(self, content, *options):
        """Copies in a native program; returns the process that offers the content."""
        source = self.processes.start(
            "wl-copy", "--foreground", *options, "--", content, name="wl-copy")
        wait_for(lambda: self.pasted() == content, f"{content!r} on the clipboard")
        return source

    def pasted(self):
        """What a native program pastes."""
        return self.processes.run("sh", "-c", "wl-paste --no-newline 2>/dev/null || true")

    def _start_server(self):
        answer = self._runtime / "displays"
        configuration = self._runtime / "config"
        configuration.write_text(_CONFIGURATION.format(answer=answer), encoding="utf-8")
        if os.geteuid() == 0:
            os.chown(self._runtime, _NOBODY, _NOBODY)
            configuration.chmod(0o644)
        self._server = self.processes.start(
            "sway", "--config", configuration, limits=_become_nobody, environment={
                "XDG_RUNTIME_DIR": str(self._runtime),
                "HOME": str(self._runtime),
                "WLR_BACKENDS": "headless",
                "WLR_RENDERER": "pixman",
                "WLR_LIBINPUT_NO_DEVICES": "1",
            })
        wait_for(answer.exists, "sway", 30)
        wayland, x11 = answer.read_text(encoding="ascii").split()
        self.environment["WAYLAND_DISPLAY"] = str(self._runtime / wayland)
        self.environment["DISPLAY"] = x11
        self.environment["XDG_SESSION_TYPE"] = "wayland"
        self.display = self.connect()
        self.windows = Windows(self.display)
        self.keyboard = Keyboard(self.display)
        self.pointer = Pointer(self.display)


def _become_nobody():
    if os.geteuid() == 0:
        os.setgroups([])
        os.setgid(_NOBODY)
        os.setuid(_NOBODY)
