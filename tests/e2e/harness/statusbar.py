"""The desktop's bar with the program's item: the side that shows items and draws their menus."""

from dataclasses import dataclass
from pathlib import Path

from gi.repository import Gio, GLib

from .tree import connect
from .waiting import wait_for

_HOST = Path(__file__).parent / "applications/status_notifier_host.py"
_WATCHER = "org.kde.StatusNotifierWatcher"
_ITEM = "org.kde.StatusNotifierItem"
_MENU = "com.canonical.dbusmenu"
_TIMEOUT_MS = 5000


@dataclass(frozen=True)
class Entry:
    """One entry of a menu; separators have no text."""

    id: int
    text: str
    is_enabled: bool
    is_separator: bool
    shortcut: tuple
    has_symbol: bool


class StatusBar:
    """A host of status notifier items on the session bus of a desktop."""

    def __init__(self, desktop, *options):
        self._desktop = desktop
        self._bus = connect(desktop.environment["DBUS_SESSION_BUS_ADDRESS"])
        self.process = None
        self.start(*options)

    def start(self, *options):
        self.process = self._desktop.processes.start("/usr/bin/python3", _HOST, *options)
        wait_for(lambda: self.items() is not None, "the bar to take items")

    def stop(self):
        self._desktop.processes.stop(self.process)

    def items(self):
        """The registered items; None while there is no bar."""
        try:
            listed = self._get(_WATCHER, "/StatusNotifierWatcher", _WATCHER,
                               "RegisteredStatusNotifierItems")
        except GLib.Error:
            return None
        return [Item(self, *_split(address)) for address in listed]

    def item(self):
        """The only item; waits until there is one."""
        return wait_for(self.items, "an item in the bar")[0]

    def call(self, name, path, interface, method, arguments=None):
        return self._bus.call_sync(name, path, interface, method, arguments, None,
                                   Gio.DBusCallFlags.NO_AUTO_START, _TIMEOUT_MS, None).unpack()

    def _get(self, name, path, interface, member):
        return self.call(name, path, "org.freedesktop.DBus.Properties", "Get",
                         GLib.Variant("(ss)", (interface, member)))[0]

    get = _get


class Item:
    """A registered item, asked directly."""

    def __init__(self, bar, name, path):
        self._bar = bar
        self._name = name
        self._path = path

    def property(self, member):
        return self._bar.get(self._name, self._path, _ITEM, member)

    def activate(self):
        self._bar.call(self._name, self._path, _ITEM, "Activate", GLib.Variant("(ii)", (0, 0)))

    def menu(self):
        """The entries in order, as a bar reads them to draw the menu."""
        layout = self._bar.call(self._name, self.property("Menu"), _MENU, "GetLayout",
                                GLib.Variant("(iias)", (0, -1, [])))[1]
        return [_entry(*child) for child in layout[2]]

    def entry(self, text):
        return next(entry for entry in self.menu() if entry.text == text)

    def choose(self, text):
        """What a click on the entry does."""
        self._bar.call(self._name, self.property("Menu"), _MENU, "Event", GLib.Variant(
            "(isvu)", (self.entry(text).id, "clicked", GLib.Variant("i", 0), 0)))


def _split(address):
    name, slash, path = address.partition("/")
    return name, slash + path


def _entry(number, properties, _children):
    return Entry(
        id=number,
        text=properties.get("label", "").replace("_", ""),
        is_enabled=properties.get("enabled", True),
        is_separator=properties.get("type") == "separator",
        shortcut=tuple(tuple(keys) for keys in properties.get("shortcut", [])),
        has_symbol=bool(properties.get("icon-data")) or bool(properties.get("icon-name")))
