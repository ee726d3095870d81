"""The tree that assistive technology sees (AT-SPI 2), spoken over its bus directly.

Going over the bus keeps every question bounded in time, and lets one process look at many desktops
one after the other.
"""

import gi

gi.require_version("Gio", "2.0")
from gi.repository import Gio, GLib  # noqa: E402

from .waiting import TIMEOUT, wait_for  # noqa: E402
from .windows import Geometry  # noqa: E402

_ACCESSIBLE = "org.a11y.atspi.Accessible"
_ROOT_PATH = "/org/a11y/atspi/accessible/root"
_TIMEOUT_MS = 5000
_SCREEN_COORDINATES = 0

# Bits of the state set, by their place in AtspiStateType.
_STATES = {"checked": 4, "editable": 7, "enabled": 8, "expanded": 10, "focusable": 11,
           "focused": 12, "pressed": 18, "selected": 23, "sensitive": 24, "showing": 25,
           "visible": 30}


def connect(address):
    return Gio.DBusConnection.new_for_address_sync(
        address,
        Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT
        | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION,
        None, None)


def _ask(bus, name, path, interface, method, arguments=None):
    answer = bus.call_sync(
        name, path, interface, method, arguments, None, Gio.DBusCallFlags.NONE, _TIMEOUT_MS, None)
    return answer.unpack()


class Tree:
    """All applications that take part in accessibility."""

    def __init__(self, session_address):
        session = connect(session_address)
        address = wait_for(lambda: self._accessibility_address(session), "the accessibility bus")
        self._bus = connect(address)

    @staticmethod
    def _accessibility_address(session):
        try:
            return _ask(session, "org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress")[0]
        except GLib.Error:
            return None

    def applications(self):
        registry = Node(self._bus, "org.a11y.atspi.Registry", _ROOT_PATH)
        return registry.children()

    def application(self, pid, timeout=TIMEOUT):
        """The application of a process; waits until it has joined."""
        return wait_for(lambda: self._application_of(pid), f"process {pid} in the tree", timeout)

    def _application_of(self, pid):
        return next((node for node in self.applications() if node.pid() == pid), None)


class Node:
    """One accessible element. Elements that end meanwhile read as empty."""

    def __init__(self, bus, owner, path):
        self._bus = bus
        self._owner = owner
        self._path = path

    def __repr__(self):
        return f"<{self.role} {self.name!r}>"

    def __eq__(self, other):
        return (self._owner, self._path) == (other._owner, other._path)

    def __hash__(self):
        return hash((self._owner, self._path))

    @property
    def name(self):
        return self._property(_ACCESSIBLE, "Name") or ""

    @property
    def role(self):
        answer = self._call(_ACCESSIBLE, "GetRoleName")
        return answer[0] if answer else ""

    def pid(self):
        try:
            return _ask(self._bus, "org.freedesktop.DBus", "/org/freedesktop/DBus",
                        "org.freedesktop.DBus", "GetConnectionUnixProcessID",
                        GLib.Variant("(s)", (self._owner,)))[0]
        except GLib.Error:
            return None

    def children(self):
        answer = self._call(_ACCESSIBLE, "GetChildren")
        return [Node(self._bus, owner, path) for owner, path in answer[0]] if answer else []

    def has_state(self, state):
        answer = self._call(_ACCESSIBLE, "GetState")
        if not answer:
            return False
        low, high = answer[0]
        return bool((low | high << 32) >> _STATES[state] & 1)

    @property
    def is_showing(self):
        return self.has_state("showing")

    def descendants(self):
        for child in self.children():
            yield child
            yield from child.descendants()

    def find_all(self, role=None, name=None):
        """The elements below this one, in order; `name` may end with "*" for any ending."""
        return [node for node in self.descendants()
                if _matches(role, node.role) and _matches(name, node.name)]

    def find(self, role=None, name=None, timeout=TIMEOUT):
        """The first such element; waits until there is one."""
        return wait_for(lambda: next(iter(self.find_all(role, name)), None),
                        f"{role or 'element'} {name or ''} below {self!r}", timeout)

    def extents(self):
        answer = self._call("org.a11y.atspi.Component", "GetExtents",
                            GLib.Variant("(u)", (_SCREEN_COORDINATES,)))
        return Geometry(*answer[0]) if answer else None

    def actions(self):
        answer = self._call("org.a11y.atspi.Action", "GetActions")
        return [action[0] for action in answer[0]] if answer else []

    def act(self, action):
        """Does the action of that name, as a screen reader's user would."""
        index = self.actions().index(action)
        answer = self._call("org.a11y.atspi.Action", "DoAction", GLib.Variant("(i)", (index,)))
        if not answer or not answer[0]:
            raise RuntimeError(f"{self!r} refused to {action}")

    def value(self):
        """What a slider or a spin button stands at."""
        return self._property("org.a11y.atspi.Value", "CurrentValue")

    def set_value(self, value):
        self._call("org.freedesktop.DBus.Properties", "Set", GLib.Variant(
            "(ssv)", ("org.a11y.atspi.Value", "CurrentValue", GLib.Variant("d", value))))

    def text(self):
        answer = self._call("org.a11y.atspi.Text", "GetText", GLib.Variant("(ii)", (0, -1)))
        return answer[0] if answer else ""

    def selected_text(self):
        answer = self._call("org.a11y.atspi.Text", "GetSelection", GLib.Variant("(i)", (0,)))
        return self.text()[slice(*answer)] if answer else ""

    def caret_offset(self):
        return self._property("org.a11y.atspi.Text", "CaretOffset")

    def caret(self):
        """Where the caret of a text element is on the screen."""
        offset = self.caret_offset()
        answer = self._call("org.a11y.atspi.Text", "GetCharacterExtents",
                            GLib.Variant("(iu)", (offset, _SCREEN_COORDINATES)))
        if answer and any(answer[2:]):
            return Geometry(*answer)
        # Behind the last character there is none to ask for: the caret stands at its right edge.
        answer = self._call("org.a11y.atspi.Text", "GetCharacterExtents",
                            GLib.Variant("(iu)", (offset - 1, _SCREEN_COORDINATES)))
        if answer and any(answer[2:]):
            return Geometry(answer[0] + answer[2], answer[1], 1, answer[3])
        return None

    def dump(self, depth=0):
        """The tree below, one element a line: for messages and for looking around."""
        lines = ["  " * depth + repr(self)]
        for child in self.children():
            lines += child.dump(depth + 1)
        return lines

    def _property(self, interface, name):
        answer = self._call("org.freedesktop.DBus.Properties", "Get",
                            GLib.Variant("(ss)", (interface, name)))
        return answer[0] if answer else None

    def _call(self, interface, method, arguments=None):
        try:
            return _ask(self._bus, self._owner, self._path, interface, method, arguments)
        except GLib.Error:
            return None


def _matches(wanted, seen):
    if wanted is None:
        return True
    return seen.startswith(wanted[:-1]) if wanted.endswith("*") else seen == wanted
