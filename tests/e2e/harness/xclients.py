"""X clients that own the clipboard, well-behaved and hostile, and one that asks for it."""

import os
import select
import threading
import time

from Xlib import X, Xatom, error
from Xlib.protocol import event

from .waiting import TIMEOUT, wait_for

_CHUNK = 200_000  # below the longest request of a server without big requests
_NO_PROPERTY = X.NONE

SECRET_HINT = "x-kde-passwordManagerHint"


class ClipboardOwner:
    """Owns CLIPBOARD from a thread and a connection of its own, like another program.

    `offers` maps target names to bytes. A context manager; `close` ends its connection at once, as
    the end of a program does. `asked` lists the targets that were asked for, in order.
    """

    def __init__(self, desktop, offers, *, chunk=_CHUNK):
        self.offers = offers
        self.asked = []
        self._chunk = chunk
        self._display = desktop.connect()
        screen = self._display.screen()
        self._window = screen.root.create_window(
            -10, -10, 1, 1, 0, screen.root_depth, event_mask=X.PropertyChangeMask)
        self._transfers = {}
        self._wake_read, self._wake_write = os.pipe()
        self._closing = False
        self._window.set_selection_owner(self.atom("CLIPBOARD"), self._server_time())
        self._display.sync()
        if self._display.get_selection_owner(self.atom("CLIPBOARD")) != self._window:
            raise RuntimeError("another client took the clipboard first")
        self._thread = threading.Thread(target=self._serve, daemon=True)
        self._thread.start()

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.close()

    def close(self):
        self._closing = True
        os.write(self._wake_write, b"x")
        self._thread.join(TIMEOUT)
        os.close(self._wake_read)
        os.close(self._wake_write)

    def atom(self, name):
        return self._display.intern_atom(name)

    def wait_until_asked(self, target):
        wait_for(lambda: target in self.asked, f"somebody to ask for {target}")

    # What hostile owners do differently

    def answer(self, request, target):
        """Answers one request for `target`, which is on offer."""
        self.send(request, self.offers[target])

    def send(self, request, data):
        """Hands over `data`, in increments when it is long."""
        if len(data) <= self._chunk:
            request.requestor.change_property(request.property, request.target, 8, data)
            self.notify(request, request.property)
        else:
            self.send_in_increments(request, iter(_chunks(data, self._chunk)), len(data))

    def send_in_increments(self, request, chunks, announced_size):
        request.requestor.change_attributes(event_mask=X.PropertyChangeMask)
        self._transfers[(request.requestor.id, request.property)] = (request, chunks)
        request.requestor.change_property(
            request.property, self.atom("INCR"), 32, [announced_size & 0xFFFFFFFF])
        self.notify(request, request.property)

    def before_increment(self):
        """Called before each further increment."""

    def notify(self, request, property_atom):
        request.requestor.send_event(event.SelectionNotify(
            time=request.time, requestor=request.requestor, selection=request.selection,
            target=request.target, property=property_atom))
        self._display.flush()

    # The connection's thread

    def _serve(self):
        try:
            while not self._closing:
                if not self._display.pending_events():
                    select.select([self._display.fileno(), self._wake_read], [], [])
                    if self._closing:
                        break
                    if not self._display.pending_events():
                        continue
                self._handle(self._display.next_event())
        except (error.ConnectionClosedError, OSError):
            pass
        finally:
            self._display.close()

    def _handle(self, received):
        if received.type == X.SelectionRequest:
            if received.property == X.NONE:
                received.property = received.target
            self._handle_request(received)
        elif received.type == X.PropertyNotify and received.state == X.PropertyDelete:
            self._continue_transfer((received.window.id, received.atom))

    def _handle_request(self, request):
        target = self._display.get_atom_name(request.target)
        self.asked.append(target)
        if target == "TARGETS":
            names = ["TARGETS", "TIMESTAMP", *self.offers]
            request.requestor.change_property(
                request.property, Xatom.ATOM, 32, [self.atom(name) for name in names])
            self.notify(request, request.property)
        elif target == "TIMESTAMP":
            request.requestor.change_property(request.property, Xatom.INTEGER, 32, [self._time])
            self.notify(request, request.property)
        elif target in self.offers:
            self.answer(request, target)
        else:
            self.notify(request, _NO_PROPERTY)

    def _continue_transfer(self, key):
        if key not in self._transfers:
            return
        request, chunks = self._transfers[key]
        self.before_increment()
        chunk = next(chunks, b"")
        request.requestor.change_property(request.property, request.target, 8, chunk)
        self._display.flush()
        if not chunk:
            del self._transfers[key]

    def _server_time(self):
        self._window.change_property(self.atom("_TIMESTAMP_PROBE"), Xatom.STRING, 8, b"")
        while True:
            received = self._display.next_event()
            if received.type == X.PropertyNotify:
                self._time = received.time
                return received.time


class NeverAnswers(ClipboardOwner):
    """Takes every request and says nothing; or only those for content, when it tells its targets."""

    def __init__(self, desktop, offers=None, *, tells_targets=False):
        self._tells_targets = tells_targets
        super().__init__(desktop, offers or {"UTF8_STRING": b"never seen"})

    def _handle_request(self, request):
        target = self._display.get_atom_name(request.target)
        if target == "TARGETS" and self._tells_targets:
            super()._handle_request(request)
        else:
            self.asked.append(target)

    def answer(self, request, target):
        pass


class DiesMidway(ClipboardOwner):
    """Ends in the middle of an incremental transfer."""

    def answer(self, request, target):
        self.send_in_increments(request, iter(_chunks(self.offers[target], 1000)), 1_000_000)

    def before_increment(self):
        self._sent = getattr(self, "_sent", 0) + 1
        if self._sent > 2:
            self._closing = True


class Drips(ClipboardOwner):
    """Hands its text over a byte at a time with long pauses."""

    def answer(self, request, target):
        self.send_in_increments(request, iter(_chunks(self.offers[target], 1)), 1_000_000)

    def before_increment(self):
        time.sleep(0.2)  # this slowness is its bad behavior


class NeverEnds(ClipboardOwner):
    """Goes on handing over increments for ever."""

    def answer(self, request, target):
        self.send_in_increments(request, iter(lambda: b"again and again " * 4096, None), 1000)


class AnnouncesTooMuch(ClipboardOwner):
    """Announces four gigabytes and hands over what it has."""

    def answer(self, request, target):
        data = self.offers[target]
        self.send_in_increments(request, iter(_chunks(data, 4)), 0xFFFFFFFF)


class AnnouncesTooLittle(ClipboardOwner):
    """Announces one byte and hands over all that it has."""

    def answer(self, request, target):
        data = self.offers[target]
        self.send_in_increments(request, iter(_chunks(data, max(1, len(data) // 3))), 1)


class ClipboardReader:
    """Asks for the clipboard like an application that pastes."""

    def __init__(self, desktop):
        self._display = desktop.connect()
        screen = self._display.screen()
        self._window = screen.root.create_window(
            -10, -10, 1, 1, 0, screen.root_depth, event_mask=X.PropertyChangeMask)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self._display.close()

    def targets(self):
        """The names of what is on offer; empty when there is no owner."""
        value = self._convert("TARGETS")
        return [self._display.get_atom_name(atom) for atom in value[1]] if value else []

    def read(self, target, timeout=TIMEOUT):
        """The content in the form `target`; none when it is not on offer."""
        value = self._convert(target, timeout)
        return bytes(value[1]) if value else None

    def text(self):
        data = self.read("UTF8_STRING")
        return None if data is None else data.decode("utf-8")

    def _convert(self, target, timeout=TIMEOUT):
        atom = self._display.intern_atom
        place = atom("DRIFTBOX_TEST_READ")
        self._window.delete_property(place)
        self._window.convert_selection(atom("CLIPBOARD"), atom(target), place, X.CurrentTime)
        deadline = time.monotonic() + timeout
        answer = self._next(deadline, lambda e: e.type == X.SelectionNotify)
        if answer.property == X.NONE:
            return None
        value = self._take(place)
        if value.property_type != atom("INCR"):
            return value.format, value.value
        whole = b""
        while True:
            self._next(deadline, lambda e: e.type == X.PropertyNotify and e.atom == place
                       and e.state == X.PropertyNewValue)
            value = self._take(place)
            if value is None:  # the announcement of what was taken already
                continue
            if not len(value.value):
                return 8, whole
            whole += value.value

    def _take(self, place):
        value = self._window.get_full_property(place, X.AnyPropertyType)
        self._window.delete_property(place)
        return value

    def _next(self, deadline, wanted):
        while True:
            while self._display.pending_events():
                received = self._display.next_event()
                if wanted(received):
                    return received
            left = deadline - time.monotonic()
            if left <= 0:
                raise TimeoutError("the owner of the clipboard does not answer")
            select.select([self._display.fileno()], [], [], left)


def _chunks(data, size):
    return (data[start:start + size] for start in range(0, len(data), size))
