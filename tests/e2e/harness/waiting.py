"""Waiting for what is expected to become true, with a deadline."""

import time

PATIENCE = 15.0  # seconds; only a failing test ever waits this long
_PAUSE = 0.01


def wait_for(condition, what, timeout=PATIENCE):
    """Calls `condition` until it returns something true, and returns that.

    Raises TimeoutError naming `what` when the time is up.
    """
    deadline = time.monotonic() + timeout
    while True:
        result = condition()
        if result:
            return result
        if time.monotonic() > deadline:
            raise TimeoutError(f"waited {timeout:g} s for {what}; last seen: {result!r}")
        time.sleep(_PAUSE)


def wait_for_equal(read, expected, what, timeout=PATIENCE):
    """Calls `read` until it returns `expected`; names both when the time is up."""
    deadline = time.monotonic() + timeout
    while (seen := read()) != expected:
        if time.monotonic() > deadline:
            raise TimeoutError(f"waited {timeout:g} s for {what} to be {expected!r}, not {seen!r}")
        time.sleep(_PAUSE)
