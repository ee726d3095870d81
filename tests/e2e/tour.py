#!/usr/bin/python3
"""The tour: what the program is for, played on a virtual desktop and kept as pictures.

    tour.py [FOLDER]    the pictures go to build/tour unless FOLDER is given
"""

import shutil
import sys
from pathlib import Path

from harness import pictures, screenshot
from harness.apps import FocusWriter, Mousepad, PictureViewer
from harness.desktop import Desktop, Monitor
from harness.notes import MAKE_NOTE, SAVE, Notes
from harness.panel import PICTURE
from harness.program import PROGRAM, PROJECT, Program
from harness.waiting import wait_for, wait_for_equal

SCREEN = (Monitor("only", 0, 0, 1600, 1000, primary=True),)

NOTES = """Harbour walk, Saturday

Meet at 10:30 by the old crane, pier 4.
Bring a jacket: the wind comes from the north-west.
Tickets for the ferry: https://ferry.example/harbour?day=6
"""

PROGRAMME = r"""{\rtf1\ansi{\fonttbl{\f0 Inter;}}\f0\fs26
{\b The programme}\par
{\i 10:30}  the old crane and its keeper\par
{\i 11:45}  by ferry to the lighthouse\par
{\i 13:00}  lunch at {\b Three Gulls}\par}"""

LETTER = "Dear all,\n\nthis is what we are going to do on Saturday:\n\n"

GTK_SETTINGS = """[Settings]
gtk-font-name=Inter 11
gtk-cursor-blink=0
"""
# The editor warns whom it runs for as root, as in a container.
GTK_STYLE = """label { font-size: 1px; opacity: 0; }
menubar label, menu label { font-size: 11pt; opacity: 1; }
textview { font: 11pt "DejaVu Sans Mono"; }
"""


class Tour:
    """Plays the steps and keeps a numbered picture of each."""

    def __init__(self, desktop, folder):
        self._desktop = desktop
        self._folder = folder
        self._program = Program(desktop)
        self._count = 0

    def picture(self, name):
        self._count += 1
        path = self._folder / f"{self._count:02}-{name}.png"
        screenshot.take_still(self._desktop.display).save(path)
        print(f"  {path.name}", flush=True)

    def play(self):
        self._program.start()
        self._copy_text()
        self._copy_rich_text()
        self._copy_picture()
        letter = self._begin_letter()
        self._pick_by_keyboard(letter)
        self._search_and_pick_by_mouse(letter)
        self._make_notes()
        self._program.stop()

    def _copy_text(self):
        keyboard = self._desktop.keyboard
        notes = Mousepad(self._desktop, NOTES, name="Harbour walk.txt")
        self._place(notes, 60, 70, 640, 380)
        keyboard.tap("Home", ["Control_L"])
        for _ in range(2):
            keyboard.tap("Down")
        keyboard.tap("End", ["Shift_L"])
        keyboard.tap("c", ["Control_L"])
        self._program.wait_for_texts([NOTES.splitlines()[2]])
        self.picture("a-text-is-copied")

    def _copy_rich_text(self):
        programme = FocusWriter(self._desktop, PROGRAMME, name="Programme.rtf")
        self._place(programme, 800, 60, 740, 560)
        screenshot.take_still(self._desktop.display)
        self._desktop.keyboard.tap("a", ["Control_L"])
        self._desktop.keyboard.tap("c", ["Control_L"])
        entries = self._program.wait_for_entries(2)
        assert "rtfData" in entries[0], "the formatting was not captured"
        self.picture("a-rich-text-is-copied")

    def _copy_picture(self):
        viewer = PictureViewer(self._desktop, pictures.harbour(), name="Harbour.png")
        self._place(viewer, 640, 380, 880, 560)
        screenshot.take_still(self._desktop.display)
        viewer.copy()
        entries = self._program.wait_for_entries(3)
        assert entries[0]["kind"] == "image", "the picture was not captured"
        self.picture("a-picture-is-copied")

    def _begin_letter(self):
        letter = Mousepad(self._desktop, LETTER, name="Letter.txt")
        self._place(letter, 110, 150, 760, 640)
        self._desktop.keyboard.tap("End", ["Control_L"])
        return letter

    def _pick_by_keyboard(self, letter):
        """A double tap, two steps down, Enter: the rich text, as plain text in a plain editor."""
        keyboard, panel = self._desktop.keyboard, self._program.panel
        caret = letter.caret()
        panel.open()
        self.picture("a-double-tap-opens-the-panel-at-the-caret")
        place = panel.geometry()
        assert abs(place.x - caret.x) <= 30, f"the panel is at {place}, the caret at {caret}"
        keyboard.tap("Down")
        self.picture("the-arrow-keys-choose")
        keyboard.tap("Return")
        wait_for(lambda: "the old crane and its keeper" in letter.text(), "the programme to arrive")
        panel.wait_until_closed()
        wait_for(letter.has_keyboard, "the letter to have the keyboard")
        self.picture("what-was-picked-is-pasted")

    def _search_and_pick_by_mouse(self, letter):
        keyboard, panel = self._desktop.keyboard, self._program.panel
        keyboard.type("\n\nDo not forget: ")
        panel.open()
        panel.search("meet")
        row = panel.hover(f"Text: {NOTES.splitlines()[2]}")
        self.picture("typing-searches")
        self._desktop.pointer.click(*row.extents().center)
        expected = f"Do not forget: {NOTES.splitlines()[2]}"
        wait_for(lambda: letter.text().endswith(expected), "the text to arrive")
        panel.wait_until_closed()
        self.picture("the-letter-is-written")
        wait_for_equal(lambda: self._program.texts()[0], NOTES.splitlines()[2], "the front entry")

    def _make_notes(self):
        """One of the picture, one from scratch, which is saved."""
        notes = Notes(self._program)
        self._program.panel.open()
        self._program.panel.click_action(PICTURE, MAKE_NOTE)
        harbour = notes.next_window()
        shopping = notes.make("For the trip\n\n- sandwiches\n- a thermos\n- the map")
        shopping.click("Blue")
        shopping.click(SAVE)
        notes.wait_for_texts([shopping.text()])
        place = harbour.geometry()
        harbour.drag(-60, 300)
        harbour.settled(place)
        shopping.hover()
        self.picture("notes-float-above")
        notes.open_section()
        self.picture("and-are-listed")
        self._desktop.keyboard.tap("Escape")
        self._program.panel.wait_until_closed()

    def _place(self, application, x, y, width, height):
        self._desktop.windows.place(application.window, x, y, width, height)
        wait_for(lambda: application.geometry().width == width, "the window at its size")


def furnish(desktop):
    """A wallpaper and a legible font, so that the pictures are good to look at."""
    settings = Path(desktop.environment["XDG_CONFIG_HOME"]) / "gtk-3.0/settings.ini"
    settings.parent.mkdir(parents=True)
    settings.write_text(GTK_SETTINGS, encoding="utf-8")
    (settings.parent / "gtk.css").write_text(GTK_STYLE, encoding="utf-8")
    desktop.processes.run("hsetroot", "-add", "#25405e", "-add", "#5d8aa8", "-gradient", "160")


def main():
    folder = Path(sys.argv[1]) if len(sys.argv) > 1 else PROJECT / "build/tour"
    shutil.rmtree(folder, ignore_errors=True)
    folder.mkdir(parents=True)
    if not PROGRAM.exists():
        sys.exit(f"{PROGRAM} is not built: ./dev build release")
    print(f"The tour, as pictures in {folder}:", flush=True)
    with Desktop(monitors=SCREEN, compositor=True) as desktop:
        furnish(desktop)
        tour = Tour(desktop, folder)
        try:
            tour.play()
        except (AssertionError, TimeoutError) as failure:
            tour.picture("what-went-wrong")
            print(f"The tour failed: {failure}")
            return 1
    print("The tour went well: a text, a rich text and a picture were copied, a double tap of Control"
          " opened the panel at the caret, what was picked was pasted into the editor, and notes were"
          " made.")
    return 0


if __name__ == "__main__":
    sys.exit(main())
