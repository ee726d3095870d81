"""A private session: X server, buses, window manager, home. Nothing of it outlives the test."""

import os
import shutil
import tempfile
from dataclasses import dataclass
from pathlib import Path

from Xlib import display as xdisplay
from Xlib.protocol import display as xprotocol
from Xlib.protocol import event as xevent

from .keys import Keyboard, Pointer
from .processes import Processes
from .tree import Tree
from .waiting import wait_for
from .windows import Windows

AT_SPI_LAUNCHER = "/usr/libexec/at-spi-bus-launcher"

# What the bus may start by itself: the accessibility bus and the settings service of Xfce's window
# manager. Everything else that the machine offers stays out.
_ACTIVATABLE = ("org.a11y.Bus.service", "org.xfce.Xfconf.service")

_BUS_CONFIGURATION = """<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>session</type>
  <listen>unix:path={socket}</listen>
  <auth>EXTERNAL</auth>
  <servicedir>{services}</servicedir>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
</busconfig>
"""

_OPENBOX_CONFIGURATION = """<?xml version="1.0" encoding="UTF-8"?>
<openbox_config xmlns="http://openbox.org/3.4/rc">
  <focus><focusNew>yes</focusNew><followMouse>no</followMouse></focus>
  <placement><policy>Smart</policy></placement>
  <theme><name>Clearlooks</name><titleLayout>NLIMC</titleLayout></theme>
  <desktops><number>2</number></desktops>
  <keyboard><keybind key="A-F4"><action name="Close"/></keybind></keyboard>
  <mouse>
    <context name="Client">
      <mousebind button="Left" action="Press"><action name="Focus"/><action name="Raise"/></mousebind>
    </context>
    <context name="Titlebar">
      <mousebind button="Left" action="Press"><action name="Focus"/><action name="Raise"/></mousebind>
    </context>
  </mouse>
</openbox_config>
"""

_I3_CONFIGURATION = """# i3 config file (v4)
font pango:DejaVu Sans 10
focus_follows_mouse no
"""


@dataclass(frozen=True)
class Monitor:
    """A monitor of the virtual screen, in pixels."""

    name: str
    x: int
    y: int
    width: int
    height: int
    primary: bool = False

    def contains(self, x, y):
        return (self.x <= x < self.x + self.width) and (self.y <= y < self.y + self.height)


ONE_MONITOR = (Monitor("only", 0, 0, 1440, 900, primary=True),)
LEFT_OF_PRIMARY = (
    Monitor("left", 0, 0, 1200, 900),
    Monitor("right", 1200, 0, 1440, 900, primary=True),
)


class Desktop:
    """A running session; a context manager.

    `environment` is what its programs are started with, `processes` starts them; `keyboard`,
    `pointer`, `windows` and `tree` (of assistive technology) are its hands and eyes.
    """

    def __init__(self, *, monitors=ONE_MONITOR, window_manager="openbox", compositor=False, dpi=96):
        self.monitors = monitors
        self.window_manager_name = window_manager
        self._compositor_wanted = compositor
        self._dpi = dpi
        self.folder = Path(tempfile.mkdtemp(prefix="driftbox-e2e-"))
        self.environment = self._make_environment()
        self.processes = Processes(self.environment, self._make_folder("logs"))
        self.display = None
        self.compositor = None
        self.window_manager = None

    def __enter__(self):
        try:
            self._start_server()
            self._start_buses()
            self.start_window_manager()
            if self._compositor_wanted:
                self.start_compositor()
        except BaseException:
            self.stop()
            raise
        return self

    def __exit__(self, *_):
        self.stop()

    def stop(self):
        if self.display is not None:
            self.display.close()
            self.display = None
        self.processes.stop_all()
        shutil.rmtree(self.folder, ignore_errors=True)

    def connect(self):
        """A connection of its own to the X server, for another thread."""
        # The library has one table of extension events per process; their numbers differ between
        # servers.
        xprotocol.Display.event_classes = xevent.event_class.copy()
        connection = xdisplay.Display(self.environment["DISPLAY"])
        connection.display.event_classes = xprotocol.Display.event_classes
        return connection

    def size(self):
        """The size of the whole virtual screen."""
        return (max(m.x + m.width for m in self.monitors),
                max(m.y + m.height for m in self.monitors))

    @property
    def primary(self):
        return next(monitor for monitor in self.monitors if monitor.primary)

    def monitor_at(self, x, y):
        return next(monitor for monitor in self.monitors if monitor.contains(x, y))

    # Window managers

    def start_window_manager(self):
        """Starts the window manager and waits until it manages the screen."""
        config = self.folder / "window-manager"
        commands = {
            "openbox": ("openbox", "--sm-disable", "--config-file", config),
            "xfwm4": ("xfwm4", "--compositor=off", "--sm-client-disable"),
            "kwin_x11": ("kwin_x11", "--no-kactivities"),
            "i3": ("i3", "-c", config),
        }
        config.write_text({"openbox": _OPENBOX_CONFIGURATION, "i3": _I3_CONFIGURATION}.get(
            self.window_manager_name, ""), encoding="utf-8")
        self.window_manager = self.processes.start(*commands[self.window_manager_name])
        wait_for(self.windows.is_managed, f"{self.window_manager_name} to manage the screen", 30)

    def stop_window_manager(self):
        self.processes.stop(self.window_manager)
        wait_for(lambda: not self.windows.is_managed(), "the window manager to be gone")

    def start_compositor(self):
        """Starts picom and waits until windows are blended."""
        self.compositor = self.processes.start(
            "picom", "--backend", "xrender", "--config", "/dev/null", "--no-fading-openclose")
        wait_for(self.windows.is_composited, "the compositor")

    def stop_compositor(self):
        self.processes.stop(self.compositor)
        wait_for(lambda: not self.windows.is_composited(), "the compositor to be gone")

    # Misfortunes

    def stop_server(self):
        """Ends the X server under its clients."""
        self.display = None
        self.processes.stop(self._server)

    def stop_session_bus(self):
        self.processes.stop(self._session_bus)

    def stop_accessibility(self):
        self.processes.stop(self._accessibility)

    # Parts of the session

    def _make_folder(self, name):
        folder = self.folder / name
        folder.mkdir(mode=0o700)
        return folder

    def _make_environment(self):
        home = self._make_folder("home")
        environment = {
            "PATH": "/usr/local/bin:/usr/bin:/bin",
            "HOME": str(home),
            "TMPDIR": str(self._make_folder("tmp")),
            "XDG_RUNTIME_DIR": str(self._make_folder("run")),
            "XDG_CONFIG_HOME": str(home / ".config"),
            "XDG_DATA_HOME": str(home / ".local/share"),
            "XDG_CACHE_HOME": str(home / ".cache"),
            "XDG_STATE_HOME": str(home / ".local/state"),
            "XDG_CURRENT_DESKTOP": "X-Generic",
            "XDG_SESSION_TYPE": "x11",
            "USER": "tester",
            "LANG": "C.UTF-8",
            "LC_ALL": "C.UTF-8",
            "TZ": "UTC",
            "GSETTINGS_BACKEND": "memory",
            "GIO_USE_VFS": "local",
            "GTK_USE_PORTAL": "0",
            "GDK_BACKEND": "x11",
            "QT_QPA_PLATFORM": "xcb",
            # A Qt 5 program that starts before an assistive technology stays unknown to it.
            "QT_ACCESSIBILITY": "1",
            # No window manager here draws with a graphics card.
            "KWIN_COMPOSE": "N",
            "LIBGL_ALWAYS_SOFTWARE": "1",
        }
        for name in ("XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "XDG_STATE_HOME"):
            os.makedirs(environment[name], mode=0o700)
        return environment

    def _start_server(self):
        width, height = self.size()
        read_end, write_end = os.pipe()
        self._server = self.processes.start(
            "Xvfb", "-displayfd", write_end, "-screen", "0", f"{width}x{height}x24",
            "-dpi", self._dpi, "-nolisten", "tcp", "-noreset", pass_fds=(write_end,))
        os.close(write_end)
        with os.fdopen(read_end, encoding="ascii") as answer:
            number = answer.readline().strip()
        if not number:
            raise RuntimeError(f"the X server did not start: exit code {self._server.wait()}")
        self.environment["DISPLAY"] = f":{number}"
        self.display = self.connect()
        self.windows = Windows(self.display)
        self.keyboard = Keyboard(self.display)
        self.pointer = Pointer(self.display)
        if self.monitors != ONE_MONITOR:
            self._split_screen()

    def _split_screen(self):
        for index, monitor in enumerate(self.monitors):
            self.processes.run(
                "xrandr", "--setmonitor", ("*" if monitor.primary else "") + monitor.name,
                f"{monitor.width}/{monitor.width // 4}x{monitor.height}/{monitor.height // 4}"
                f"+{monitor.x}+{monitor.y}", "none" if index else "screen")

    def _start_buses(self):
        services = self._make_folder("services")
        for name in _ACTIVATABLE:
            source = Path("/usr/share/dbus-1/services") / name
            if source.exists():
                shutil.copy(source, services)
        socket = self.folder / "run/bus"
        configuration = self.folder / "bus.conf"
        configuration.write_text(
            _BUS_CONFIGURATION.format(socket=socket, services=services), encoding="utf-8")
        self._session_bus = self.processes.start(
            "dbus-daemon", "--nofork", f"--config-file={configuration}")
        wait_for(socket.exists, "the session bus")
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = f"unix:path={socket}"
        self._accessibility = self.processes.start(AT_SPI_LAUNCHER, "--launch-immediately")
        self.tree = Tree(self.environment["DBUS_SESSION_BUS_ADDRESS"])
