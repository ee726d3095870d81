"""The quick panel, used as a person would: by keys, by the mouse, by what can be read on it."""

from .waiting import wait_for, wait_for_equal

TITLE = "Drift Box"
SEARCH = "Search clipboard"
PIN = "Pin (survives clear & reboot)"
UNPIN = "Unpin"
PASTE_PLAIN = "Paste as plain text"
DELETE = "Delete"
CLEAR = "Clear unpinned"
SETTINGS = "Settings"
PICTURE = "Image, "  # how the row of a picture begins; its age follows, and moves on


class Panel:
    def __init__(self, program):
        self._program = program

    @property
    def _desktop(self):
        return self._program.desktop

    # Coming and going

    def open(self, **tap):
        """Double-taps and waits until the panel has the keyboard."""
        self._desktop.keyboard.double_tap(**tap)
        self.wait_until_open()

    def wait_until_open(self):
        wait_for(self.has_keyboard, "the panel to have the keyboard")

    def wait_until_closed(self):
        wait_for(lambda: not self.is_open(), "the panel to be gone")

    def window(self):
        """The id of the panel's window while it is on the screen, else none."""
        windows = self._desktop.windows
        return next((window for window in windows.of_process(self._program.process.pid)
                     if windows.title(window) == TITLE), None)

    def is_open(self):
        return self.window() is not None

    def has_keyboard(self):
        window = self.window()
        return window is not None and self._desktop.windows.has_keyboard(window)

    def geometry(self):
        return self._desktop.windows.geometry(self.window())

    # What can be read on it

    def node(self):
        """The panel in the tree of assistive technology."""
        application = self._desktop.tree.application(self._program.process.pid)
        return application.find(name=TITLE)

    def find(self, name, role=None):
        return self.node().find(role=role, name=name)

    def shows(self, name):
        """Whether an element of that name can be seen now."""
        return any(node.is_showing for node in self.node().find_all(name=name))

    def rows(self):
        """The rows of the history, from the top."""
        return [node for node in self.node().descendants()
                if node.name.startswith(("Text: ", PICTURE))]

    def row_names(self):
        return [row.name for row in self.rows()]

    def wait_for_rows(self, expected):
        wait_for_equal(self.row_names, expected, "the rows of the panel")

    def row(self, name):
        """By its name, or for a picture, whose name tells its age, by `PICTURE`."""
        return wait_for(
            lambda: next((row for row in self.rows()
                          if row.name == name or name == PICTURE and row.name.startswith(name)),
                         None), f"a row {name!r}")

    # What can be done with it

    def search(self, query):
        self._desktop.keyboard.type(query)
        wait_for_equal(lambda: self.find(SEARCH).text(), query, "the search field")

    def hover(self, name):
        """Puts the pointer on a row and returns it."""
        row = self.row(name)
        self._desktop.pointer.move(*row.extents().center)
        return row

    def click(self, name):
        """Clicks a row."""
        self._desktop.pointer.click(*self.row(name).extents().center)

    def click_action(self, row_name, action):
        """Puts the pointer on a row and clicks one of the buttons that it has."""
        button = self.hover(row_name).find(name=action)
        self._desktop.pointer.click(*button.extents().center)

    def actions_of(self, row_name):
        """The names of the buttons that a row has."""
        return [button.name for button in self.row(row_name).children()]

    def click_button(self, name):
        self._desktop.pointer.click(*self.find(name).extents().center)
