"""Applications to copy from and to paste into, each with one way to read what it holds."""

import sys
import time
from pathlib import Path

from .waiting import wait_for

_APPLICATIONS = Path(__file__).parent / "applications"

_ANSWERS_AT_REST = 20  # one after the other
_PROMPT = 0.05  # seconds for the way through the page to its field and back

# Nothing that asks, greets or calls home.
_FIREFOX_SETTINGS = """
user_pref("datareporting.policy.dataSubmissionEnabled", false);
user_pref("browser.aboutwelcome.enabled", false);
user_pref("browser.shell.checkDefaultBrowser", false);
user_pref("app.normandy.enabled", false);
user_pref("network.captive-portal-service.enabled", false);
"""


class Application:
    """A running application with one main window that had the keyboard when this was made."""

    def __init__(self, desktop, process, title):
        self.desktop = desktop
        self.process = process
        self.window = wait_for(lambda: next(iter(desktop.windows.titled(title)), None),
                               f"a window titled {title!r}", 60)

    def focus(self):
        """Gives the window the keyboard and waits until it has it."""
        if not self.has_keyboard():
            self.desktop.windows.activate(self.window)
        wait_for(self.has_keyboard, f"{self!r} to have the keyboard")

    def has_keyboard(self):
        windows = self.desktop.windows
        return windows.active() == self.window and windows.has_keyboard(self.window)

    def close(self):
        self.desktop.processes.stop(self.process)

    def geometry(self):
        return self.desktop.windows.geometry(self.window)

    def __repr__(self):
        return type(self).__name__


class _Editor(Application):
    """An application whose text is read from the accessibility tree."""

    role = "text"

    def __init__(self, desktop, process, title):
        super().__init__(desktop, process, title)
        self.focus()
        self.view = self._find_view()

    def _find_view(self):
        application = self.desktop.tree.application(self.process.pid, timeout=30)
        return wait_for(
            lambda: next((node for node in application.find_all(self.role)
                          if node.has_state("focused")), None), f"the caret of {self!r}", 30)

    def text(self):
        return self.view.text()

    def caret(self):
        return self.view.caret()


class GtkEditor(_Editor):
    """A GTK 3 text view in a window of its own."""

    def __init__(self, desktop, text=""):
        process = desktop.processes.start(
            sys.executable, _APPLICATIONS / "gtk_editor.py", text, name="gtk-editor")
        super().__init__(desktop, process, "GTK editor")


class Mousepad(_Editor):
    """A GTK 3 application."""

    def __init__(self, desktop, text="", name="mousepad.txt"):
        path = desktop.folder / "home" / name
        path.write_text(text, encoding="utf-8")
        process = desktop.processes.start("mousepad", "--disable-server", path)
        super().__init__(desktop, process, f"{name} - Mousepad")


class FeatherPad(_Editor):
    """A Qt 5 application."""

    def __init__(self, desktop, text=""):
        path = desktop.folder / "featherpad.txt"
        path.write_text(text, encoding="utf-8")
        process = desktop.processes.start("featherpad", "--standalone", path)
        super().__init__(desktop, process, "featherpad.txt")


class FocusWriter(Application):
    """A Qt 6 word processor with a document of rich text."""

    _SETTINGS = "[Window]\nFullscreen=false\nMaximized=false\n"

    def __init__(self, desktop, rtf, name="focuswriter.rtf"):
        settings = Path(desktop.environment["XDG_CONFIG_HOME"]) / "GottCode/FocusWriter.conf"
        settings.parent.mkdir(parents=True, exist_ok=True)
        settings.write_text(self._SETTINGS, encoding="ascii")
        path = desktop.folder / "home" / name
        path.write_text(rtf, encoding="ascii")
        process = desktop.processes.start("focuswriter", path)
        super().__init__(desktop, process, f"{name} — FocusWriter")
        self.focus()


class PictureViewer(Application):
    """A Qt 5 picture viewer with a picture."""

    def __init__(self, desktop, picture, name="picture.png"):
        path = desktop.folder / "home" / name
        picture.save(path)
        process = desktop.processes.start("lximage-qt", path)
        super().__init__(desktop, process, name)
        self.focus()

    def copy(self):
        """Chooses the command from the menu: it is the second there that goes by C."""
        self.open_edit_menu()
        self.desktop.keyboard.type("cc\n")
        wait_for(lambda: not self.desktop.windows.menus(), "the menu to be gone")

    def open_edit_menu(self):
        self.desktop.keyboard.tap("e", ["Alt_L"])
        wait_for(self.desktop.windows.menus, "the menu")


class XTerm(Application):
    """xterm running a program that records every byte it reads."""

    def __init__(self, desktop):
        self._record = desktop.folder / "xterm-record"
        self._record.write_bytes(b"")
        process = desktop.processes.start(
            "xterm", "-T", "Terminal", "-e", "sh", "-c",
            f"stty -icanon -echo; exec cat >{self._record}")
        super().__init__(desktop, process, "Terminal")
        self.focus()

    def text(self):
        return self._record.read_bytes().decode("utf-8", "replace").replace("\r", "\n")


class Browser(Application):
    """Chromium with a page that is one text field; the window's title shows what it holds."""

    PAGE = """<!DOCTYPE html><title>Holds: </title><body style="margin:40px">
<textarea autofocus aria-label=Field rows=8 cols=60 style="font-size:16px"
 oninput="document.title = 'Holds: ' + this.value"></textarea>"""

    def __init__(self, desktop):
        page = desktop.folder / "page.html"
        page.write_text(self.PAGE, encoding="utf-8")
        process = desktop.processes.start(
            "chromium", "--no-sandbox", "--no-first-run", "--disable-gpu", "--password-store=basic",
            "--disable-background-networking", "--disable-sync", "--disable-default-apps",
            "--disable-dev-shm-usage", f"--user-data-dir={desktop.folder / 'chromium'}",
            "--window-size=900,500", "--window-position=100,60", f"--app=file://{page}")
        super().__init__(desktop, process, "Holds:")
        self.focus()

    def text(self):
        title = self.desktop.windows.title(self.window)
        return title.removeprefix("Holds:").removeprefix(" ")


class Firefox(Application):
    """Firefox with a page that is one text field."""

    def __init__(self, desktop):
        profile = desktop.folder / "firefox"
        profile.mkdir()
        (profile / "user.js").write_text(_FIREFOX_SETTINGS, encoding="ascii")
        page = desktop.folder / "page.html"
        page.write_text(Browser.PAGE, encoding="utf-8")
        process = desktop.processes.start(
            "firefox-esr", "--no-remote", "--profile", profile, f"file://{page}", name="firefox")
        super().__init__(desktop, process, "Holds:")
        self.focus()
        self._tree = desktop.tree.application(process.pid, timeout=30)

    def caret(self):
        return wait_for(self._field().caret, "the place of the caret")

    def settle(self):
        """Waits until it has done what a browser does after its start, and answers at once."""
        field = self._field()

        def answers_at_once():
            for _ in range(_ANSWERS_AT_REST):
                asked = time.monotonic()
                if not field.caret() or time.monotonic() - asked > _PROMPT:
                    return False
            return True

        wait_for(answers_at_once, "the browser to come to rest", 60)

    def _field(self):
        return self._tree.find(role="entry", name="Field")

    def text(self):
        title = self.desktop.windows.title(self.window)
        return title.removeprefix("Holds: ").rpartition(" — ")[0]
