"""Reader windows, used as a person would: started with a file, read, edited, closed."""

from pathlib import Path

from gi.repository import Gio, GLib

from .processes import descendants
from .waiting import wait_for, wait_for_equal

EDIT, PREVIEW, REVEAL = "Edit", "Preview", "Reveal"
UNSAVED = "Unsaved changes"
SOURCE = "Markdown source"


def turn_screen_reader_on(desktop):
    """What a screen reader does as it starts: from then on documents are described, too."""
    bus = Gio.DBusConnection.new_for_address_sync(
        desktop.environment["DBUS_SESSION_BUS_ADDRESS"],
        Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT
        | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION, None, None)
    bus.call_sync(
        "org.a11y.Bus", "/org/a11y/bus", "org.freedesktop.DBus.Properties", "Set",
        GLib.Variant("(ssv)", ("org.a11y.Status", "ScreenReaderEnabled", GLib.Variant("b", True))),
        None, Gio.DBusCallFlags.NONE, 5000, None)


def renderers(pid):
    """The processes below this one that render pages."""
    return [child for child in descendants(pid)
            if "--type=renderer" in _command_line(child)]


def _command_line(pid):
    try:
        return Path(f"/proc/{pid}/cmdline").read_bytes().replace(b"\0", b" ").decode()
    except OSError:
        return ""


class Reader:
    """The reader window of one file."""

    def __init__(self, program, path):
        self.program = program
        self.desktop = program.desktop
        self.path = Path(path)
        self.window = wait_for(self._find, f"a window for {self.path.name}", 30)
        self.tree = self.desktop.tree.application(program.process.pid).find(
            "frame", self.path.name)

    def _find(self):
        found = self.windows()
        return found[0] if found else None

    def windows(self):
        """Every window of the program that bears the file's name."""
        windows = self.desktop.windows
        return [window for window in windows.of_process(self.program.process.pid)
                if windows.title(window) == self.path.name and windows.is_viewable(window)]

    def wait_for_text(self, text):
        """Waits until the rendered document says this."""
        return self.tree.find(name=f"{text}*", timeout=30)

    def button(self, label):
        return self.tree.find("push button", label)

    def has_unsaved_dot(self):
        return any(node.is_showing for node in self.tree.find_all(name=UNSAVED))

    def edit(self):
        self.button(EDIT).act("Press")
        return self.tree.find("text", SOURCE)

    def preview(self):
        self.button(PREVIEW).act("Press")

    def close(self):
        self.desktop.windows.close(self.window)
        wait_for_equal(self.windows, [], "the open windows of the file")
