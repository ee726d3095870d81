"""What the tests of misfortunes have in common."""

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
    said = [line for line in program.log() if line.is_complaint]
    assert len(said) == 1, said


def assert_opens_promptly(desktop, program):
    """Opens and closes the panel while something bad goes on."""
    started = time.monotonic()
    program.panel.open()
    taken = time.monotonic() - started
    assert taken < _PROMPT, taken
    desktop.keyboard.tap("Escape")
    program.panel.wait_until_closed()


def assert_goes_on(desktop, program, before=()):
    """The next honest copy is on disk, in front of `before`."""
    with copy(desktop, "honest"):
        wait_for(lambda: program.texts()[:1] == ["honest"], "the honest copy")
    assert program.texts() == ["honest", *before]
