"""Sticky notes, used as a person would: by keys, by the mouse, by what can be read on them."""

import json

from . import screenshot
from .waiting import wait_for, wait_for_equal
from .windows import Geometry

TITLE = "Sticky note"
MAKE_NOTE = "Make a sticky note"  # of an entry of the history
SAVE = "Save"
UNSAVE = "Unsave — note becomes a draft (deleted on close)"
COPY = "Copy to clipboard"
CLOSE = "Delete note"
NEW_STICKY_NOTE = "New sticky note"
CLOSE_ALL = "Close all"

_SHADOW = 20  # around a note, where windows are blended


def saved_note(number=1, **more):
    """A note as a manifest has it, made by hand."""
    return {"id": f"00000000-0000-4000-8000-{number:012X}", "kind": "text", "textContent": "text",
            "color": "green", "frame": {"x": 300, "y": 400, "width": 260, "height": 180},
            "zoom": 1, "isSaved": True, "createdAt": 700000000.5, "updatedAt": 700000001.5, **more}


class Notes:
    """The notes of a program, on the screen and on disk."""

    def __init__(self, program):
        self.program = program
        self.root = program.root / "notes"
        self.manifest_path = self.root / "manifest.json"
        self.images = self.root / "images"

    @property
    def desktop(self):
        return self.program.desktop

    # On the screen

    def windows(self):
        """The ids of the windows of open notes."""
        windows = self.desktop.windows
        return [window for window in windows.of_process(self.program.process.pid)
                if windows.title(window).startswith(TITLE)]

    def wait_for_windows(self, count):
        wait_for_equal(lambda: len(self.windows()), count, "the number of open notes")

    def next_window(self, before=()):
        """The note that has opened since there were only those `before`; it has the keyboard."""
        note = Note(self, wait_for(
            lambda: next((window for window in self.windows() if window not in before), None),
            "a note to open"))
        wait_for(note.has_keyboard, "the note to have the keyboard")
        return note

    def open_section(self):
        """Opens the panel on the notes' page."""
        self.program.panel.open()
        if not self.program.panel.shows("Search notes"):
            self.desktop.keyboard.tap("Tab", ["Control_L"])
        wait_for(lambda: self.program.panel.shows("Search notes"), "the notes' page")

    def make(self, text=""):
        """A new note, made in the panel."""
        before = self.windows()
        self.open_section()
        self.program.panel.click_button(NEW_STICKY_NOTE)
        note = self.next_window(before)
        self.desktop.keyboard.type(text)
        note.wait_for_text(text)
        return note

    def make_saved(self, text):
        note = self.make(text)
        note.click(SAVE)
        self.wait_for_texts([text])
        return note

    def reopen(self, row=0):
        """Opens a note by its row in the panel."""
        before = self.windows()
        self.open_section()
        for _ in range(row):
            self.desktop.keyboard.tap("Down")
        self.desktop.keyboard.tap("Return")
        return self.next_window(before)

    # On disk

    def write_manifest(self, text):
        self.root.mkdir(parents=True, exist_ok=True)
        self.manifest_path.write_text(text, encoding="utf-8")

    def manifest(self):
        """The saved notes. A manifest that is not whole raises."""
        if not self.manifest_path.exists():
            return []
        return json.loads(self.manifest_path.read_text(encoding="utf-8"))

    def texts(self):
        return [note.get("textContent") for note in self.manifest()]

    def wait_for_texts(self, expected):
        wait_for_equal(self.texts, expected, "the texts of the saved notes")


class Note:
    """An open note."""

    def __init__(self, notes, window):
        self._notes = notes
        self.window = window

    @property
    def _desktop(self):
        return self._notes.desktop

    @property
    def _scale(self):
        return int(self._desktop.environment.get("QT_SCREEN_SCALE_FACTORS", 1))

    def has_keyboard(self):
        return self._desktop.windows.has_keyboard(self.window)

    def is_open(self):
        return self.window in self._notes.windows()

    def wait_until_closed(self):
        wait_for(lambda: not self.is_open(), "the note to be gone")

    def geometry(self):
        """The paper, without its shadow."""
        around = self._desktop.windows.geometry(self.window)
        margin = _SHADOW * self._scale if self._desktop.windows.is_composited() else 0
        return Geometry(around.x + margin, around.y + margin,
                        around.width - 2 * margin, around.height - 2 * margin)

    def wait_for_geometry(self, expected):
        wait_for_equal(self.geometry, expected, "the note's place")

    def settled(self, before):
        """Where the note is once it has left the place `before` and come to rest."""
        seen = []

        def has_settled():
            seen.append(self.geometry())
            return seen[-1] != before and len(seen) > 20 and len(set(seen[-20:])) == 1

        wait_for(has_settled, "the note to come to rest")
        return seen[-1]

    # What can be read on it

    def node(self):
        """The note in the tree of assistive technology: the one that is where the window is."""
        application = self._desktop.tree.application(self._notes.program.process.pid)

        def find():
            center = self._desktop.windows.geometry(self.window).center
            return next((node for node in application.children() if node.name == TITLE and all(
                abs(told - seen) <= self._scale
                for told, seen in zip(self._center(node), center))), None)

        return wait_for(find, "the note in the tree")

    def text(self):
        return self.node().find(name="Note text").text()

    def wait_for_text(self, expected):
        wait_for_equal(self.text, expected, "the note's text")

    def wait_for_selection(self, expected):
        wait_for_equal(self.node().find(name="Note text").selected_text, expected,
                       "the note's selection")

    def picture(self):
        """The paper as it is seen."""
        place = self.geometry()
        return screenshot.take(self._desktop.display).crop(
            (place.x, place.y, place.x + place.width, place.y + place.height))

    # What can be done with it

    def focus(self):
        self._desktop.pointer.click(*self.geometry().center)
        wait_for(self.has_keyboard, "the note to have the keyboard")

    def hover(self):
        """Puts the pointer on the note and waits for its controls."""
        self._desktop.pointer.move(*self.geometry().center)
        wait_for(lambda: self.node().find(name=CLOSE).is_showing, "the note's controls")

    def click(self, control):
        self.hover()
        self._desktop.pointer.click(*self._center(self.node().find(name=control)))

    def _center(self, node):
        """In pixels; the program speaks of points."""
        return tuple(place * self._scale for place in node.extents().center)

    def drag(self, dx, dy):
        """Moves it by its paper."""
        place = self.geometry()
        start = (place.x + place.width // 2, place.y + 8 * self._scale)
        self._desktop.pointer.drag(start, (start[0] + dx, start[1] + dy))

    def drag_corner(self, dx, dy):
        """Resizes it by its lower right corner."""
        place = self.geometry()
        start = (place.x + place.width - 2, place.y + place.height - 2)
        self._desktop.pointer.drag(start, (start[0] + dx, start[1] + dy))
