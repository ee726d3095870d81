"""The windows of the screen, as the X server and the window manager know them."""

from dataclasses import dataclass

from Xlib import X, error
from Xlib.protocol import event


_ALL_DESKTOPS = 0xFFFFFFFF


@dataclass(frozen=True)
class Geometry:
    x: int
    y: int
    width: int
    height: int

    @property
    def center(self):
        return self.x + self.width // 2, self.y + self.height // 2

    def contains(self, x, y):
        return self.x <= x < self.x + self.width and self.y <= y < self.y + self.height


class Windows:
    """Looks at windows. Windows that end meanwhile read as not there."""

    def __init__(self, display):
        self._display = display
        self._root = display.screen().root

    def is_managed(self):
        """Whether a window manager manages the screen."""
        check = self._cardinal(self._root, "_NET_SUPPORTING_WM_CHECK")
        return check is not None and self._cardinal(
            self._display.create_resource_object("window", check),
            "_NET_SUPPORTING_WM_CHECK") == check

    def is_composited(self):
        owner = self._display.get_selection_owner(self._atom("_NET_WM_CM_S0"))
        return owner != X.NONE

    def active(self):
        """The id of the window that has the keyboard by the window manager's word; 0 for none."""
        return self._cardinal(self._root, "_NET_ACTIVE_WINDOW") or 0

    def focused(self):
        """The id of the window that gets the keys by the server's word."""
        focus = self._display.get_input_focus().focus
        return focus if isinstance(focus, int) else focus.id

    def has_keyboard(self, window_id):
        """Whether keys go to the window, or to one inside it."""
        focus = self.focused()
        while focus not in (X.NONE, X.PointerRoot, self._root.id):
            if focus == window_id:
                return True
            try:
                focus = self._object(focus).query_tree().parent.id
            except error.XError:
                return False
        return False

    def of_process(self, pid):
        """The viewable top-level windows of a process, as ids."""
        return [window.id for window in self._all(self._root, 4)
                if self._cardinal(window, "_NET_WM_PID") == pid and self.is_viewable(window.id)]

    def titled(self, title):
        """The viewable windows whose title contains `title`, as ids."""
        return [window.id for window in self._all(self._root, 4)
                if title in self.title(window.id) and self.is_viewable(window.id)]

    def menus(self):
        """The menus that are open, as ids."""
        types = {self._atom(f"_NET_WM_WINDOW_TYPE_{kind}_MENU") for kind in ("DROPDOWN", "POPUP")}
        return [window.id for window in self._all(self._root, 1)
                if self._cardinal(window, "_NET_WM_WINDOW_TYPE") in types
                and self.is_viewable(window.id)]

    def is_under_pointer(self, window_id):
        """Whether a click would reach the window, or one inside it, now."""
        under = self._root
        while under != X.NONE and under.id != window_id:
            try:
                under = under.query_pointer().child
            except error.XError:
                return False
        return under != X.NONE

    def is_viewable(self, window_id):
        try:
            attributes = self._object(window_id).get_attributes()
        except error.XError:
            return False
        return attributes.map_state == X.IsViewable

    def title(self, window_id):
        for name in ("_NET_WM_NAME", "WM_NAME"):
            value = self._property(self._object(window_id), name)
            if value is not None:
                text = value.value
                return text.decode("utf-8", "replace") if isinstance(text, bytes) else text
        return ""

    def states(self, window_id):
        """The names of the window's _NET_WM_STATE."""
        value = self._property(self._object(window_id), "_NET_WM_STATE")
        return {self._display.get_atom_name(atom) for atom in value.value} if value else set()

    def is_on_all_desktops(self, window_id):
        return self._cardinal(self._object(window_id), "_NET_WM_DESKTOP") == _ALL_DESKTOPS

    def geometry(self, window_id):
        """Where the window's content is on the screen."""
        window = self._object(window_id)
        size = window.get_geometry()
        place = self._root.translate_coords(window, 0, 0)
        return Geometry(place.x, place.y, size.width, size.height)

    def activate(self, window_id):
        """Asks the window manager for the window, as a task bar would."""
        self._ask_window_manager(window_id, "_NET_ACTIVE_WINDOW", [2, X.CurrentTime, 0, 0, 0])

    def close(self, window_id):
        """Asks the window manager to close the window, as a task bar would."""
        self._ask_window_manager(window_id, "_NET_CLOSE_WINDOW", [X.CurrentTime, 2, 0, 0, 0])

    def move(self, window_id, x, y):
        """Moves a window as its title bar would; the window manager may place it otherwise."""
        self._object(window_id).configure(x=x, y=y)
        self._display.sync()

    def place(self, window_id, x, y, width, height):
        """Moves and resizes a window."""
        self._object(window_id).configure(x=x, y=y, width=width, height=height)
        self._display.sync()

    def _ask_window_manager(self, window_id, request, data):
        message = event.ClientMessage(window=self._object(window_id),
                                      client_type=self._atom(request), data=(32, data))
        self._root.send_event(
            message, event_mask=X.SubstructureRedirectMask | X.SubstructureNotifyMask)
        self._display.sync()

    def _object(self, window_id):
        return self._display.create_resource_object("window", window_id)

    def _atom(self, name):
        return self._display.intern_atom(name)

    def _property(self, window, name):
        try:
            return window.get_full_property(self._atom(name), X.AnyPropertyType)
        except error.XError:
            return None

    def _cardinal(self, window, name):
        value = self._property(window, name)
        return value.value[0] if value is not None and len(value.value) else None

    def _all(self, window, depth):
        try:
            children = window.query_tree().children
        except error.XError:
            return
        for child in children:
            yield child
            if depth > 1:
                yield from self._all(child, depth - 1)
