"""The desktop's clipboard manager: it keeps what programs that end would take along."""

import select
import threading

from Xlib import X
from Xlib.protocol import event

from .xclients import ClipboardOwner, ClipboardReader

_LOOK_S = 0.05  # how often it looks whether it is to end


class ClipboardManager:
    """Takes the text from the clipboard when it is asked to. A context manager.

    A frozen one hears the question and never answers. `questions` counts them.
    """

    def __init__(self, desktop, *, frozen=False):
        self.questions = 0
        self._desktop = desktop
        self._frozen = frozen
        self._kept = None
        self._display = desktop.connect()
        screen = self._display.screen()
        self._window = screen.root.create_window(-10, -10, 1, 1, 0, screen.root_depth)
        self._window.set_selection_owner(
            self._display.intern_atom("CLIPBOARD_MANAGER"), X.CurrentTime)
        self._display.sync()
        self._closing = False
        self._thread = threading.Thread(target=self._serve, daemon=True)
        self._thread.start()

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self._closing = True
        self._thread.join()
        if self._kept:
            self._kept.close()
        self._display.close()

    def _serve(self):
        while not self._closing:
            if not self._display.pending_events():
                select.select([self._display.fileno()], [], [], _LOOK_S)
                continue
            received = self._display.next_event()
            if received.type == X.SelectionRequest:
                self.questions += 1
                if not self._frozen:
                    self._save(received)

    def _save(self, request):
        with ClipboardReader(self._desktop) as reader:
            text = reader.read("UTF8_STRING")
        self._kept = ClipboardOwner(self._desktop, {"UTF8_STRING": text})
        request.requestor.change_property(
            request.property, self._display.intern_atom("NULL"), 32, [])
        request.requestor.send_event(event.SelectionNotify(
            time=request.time, requestor=request.requestor, selection=request.selection,
            target=request.target, property=request.property))
        self._display.flush()
