"""What the tests of failures have in common."""

import time

from .waiting import wait_for
from .xclients import ClipboardOwner

_PROMPT = 1.0  # seconds; a person calls this at once, a slow machine reaches it


def copy(desktop, text):
    """An application that has copied `text`."""
    return ClipboardOwner(desktop, {"UTF8_STRING": text.encode()})


def wait_for_one_complaint(program, pattern):
    """Waits until the log says what went wrong, in one line."""
    program.expect_complaint(pattern)
    program.wait_for_log(pattern)
    assert len(program.complaints()) == 1, program.complaints()


def assert_opens_promptly(desktop, program):
    """Opens and closes the panel while something bad goes on."""
    started = time.monotonic()
    program.panel.open()
    taken = time.monotonic() - started
    assert taken < _PROMPT, taken
    desktop.keyboard.tap("Escape")
    program.panel.wait_until_closed()


def assert_goes_on(desktop, program, before=()):
    """Only `before` has been captured so far, and the next honest copy is captured too."""
    program.look_at_clipboard()
    assert program.texts() == [*before]
    with copy(desktop, "honest"):
        wait_for(lambda: program.texts()[:1] == ["honest"], "the honest copy")
    assert program.texts() == ["honest", *before]
