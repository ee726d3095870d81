"""The settings window, used by the mouse, by keys and through the tree of assistive technology."""

import json
import subprocess
from pathlib import Path

from .panel import SETTINGS
from .waiting import wait_for, wait_for_equal

TITLE = "Drift Box Settings"
PAGES = ["General", "Clipboard", "Notes", "About"]
SHADOW = 28  # around the window
LAUNCH = "Launch Drift Box at login"
HOTKEY = "Enable double-tap ⌃ Control to summon"

_PORTAL = Path(__file__).parent / "applications/settings_portal.py"


class Settings:
    """The settings of a running program."""

    def __init__(self, program):
        self.program = program
        self.autostart = (Path(program.desktop.environment["XDG_CONFIG_HOME"])
                          / "autostart/app.driftbox.desktop")

    @property
    def desktop(self):
        return self.program.desktop

    # Coming and going

    def open_from_panel(self, **tap):
        """Opens the window as one does where there is no bar."""
        self.program.panel.open(**tap)
        self.program.panel.click_button(SETTINGS)
        self.wait_until_open()
        self.program.panel.wait_until_closed()  # it lies over the settings while it goes
        return self

    def open_from(self, item):
        """Opens the window from the menu of the item in the bar."""
        item.choose("Settings…")
        self.wait_until_open()
        return self

    def windows(self):
        """The ids of the windows on the screen; there is never more than one."""
        windows = self.desktop.windows
        return [window for window in windows.of_process(self.program.process.pid)
                if windows.title(window) == TITLE]

    def window(self):
        return next(iter(self.windows()), None)

    def wait_until_open(self):
        wait_for(lambda: self.window() and self.desktop.windows.has_keyboard(self.window()),
                 "the settings to have the keyboard")

    def wait_until_closed(self):
        wait_for(lambda: not self.windows(), "the settings to be gone")

    def geometry(self):
        return self.desktop.windows.geometry(self.window())

    # What is in it

    def node(self):
        return self.desktop.tree.application(self.program.process.pid).find(name=TITLE)

    def find(self, role=None, name=None):
        """The element of that role and name that can be seen."""
        return wait_for(
            lambda: next((node for node in self.node().find_all(role, name) if node.is_showing),
                         None), f"{role} {name}")

    def pages(self):
        """The titles in the sidebar."""
        return [row.name for row in self.node().find(role="list", name="Settings pages").children()]

    def labels(self):
        """The texts that can be seen."""
        return [node.name for node in self.node().find_all(role="label") if node.is_showing]

    def page(self):
        """The title of the open page."""
        return next(label for label in self.labels() if label in PAGES)

    def choose(self, page):
        rows = self.node().find(role="list", name="Settings pages").children()
        self.click(next(row for row in rows if row.name == page))
        wait_for_equal(self.page, page, "the page")

    def click(self, node):
        self.desktop.pointer.click(*self.center_of(node))

    def focus(self, node):
        """Clicks on it and waits: keys may arrive before a click, which the window manager sees."""
        self.click(node)
        wait_for(lambda: node.has_state("focused"), f"{node!r} to have the keyboard")

    def center_of(self, node):
        """Where a node is on the screen: the toolkit tells its place in points, not in pixels."""
        pixels, points = self.geometry(), self.node().extents()
        scale = pixels.width / points.width
        x, y = node.extents().center
        return pixels.x + (x - points.x) * scale, pixels.y + (y - points.y) * scale

    def pick(self, node, steps):
        """Opens a picker and goes down by so many entries."""
        windows = self.desktop.windows
        self.click(node)
        wait_for(lambda: len(windows.of_process(self.program.process.pid)) > 1, "the choices")
        for _ in range(steps):
            self.desktop.keyboard.tap("Down")
        self.desktop.keyboard.tap("Return")

    def press(self, name):
        """Presses a button as a screen reader's user would."""
        self.find("push button", name).act("Press")

    # What is stored

    def stored(self, key):
        if not self.program.defaults_path.exists():
            return None
        return json.loads(self.program.defaults_path.read_text(encoding="utf-8")).get(
            f"settings.{key}")

    def wait_for_stored(self, key, expected):
        wait_for_equal(lambda: self.stored(key), expected, key)


class Portal:
    """What tells programs whether the desktop is light or dark."""

    def __init__(self, desktop, scheme):
        self._process = desktop.processes.start(
            "/usr/bin/python3", _PORTAL, scheme, stdin=subprocess.PIPE)

    def change(self, scheme):
        self._process.stdin.write(f"{scheme}\n".encode())
        self._process.stdin.flush()
