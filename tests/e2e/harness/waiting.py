"""Waiting for what is expected to become true, with a deadline."""

import time

TIMEOUT = 15.0  # seconds; only a failing test ever waits this long
_POLL_INTERVAL = 0.01


def wait_for(condition, what, timeout=TIMEOUT):
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
        time.sleep(_POLL_INTERVAL)


def wait_for_equal(read, expected, what, timeout=TIMEOUT):
    """Calls `read` until it returns `expected`; names both when the time is up."""
    deadline = time.monotonic() + timeout
    while (seen := read()) != expected:
        if time.monotonic() > deadline:
            raise TimeoutError(f"waited {timeout:g} s for {what} to be {expected!r}, not {seen!r}")
        time.sleep(_POLL_INTERVAL)
