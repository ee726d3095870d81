"""Pictures of the screen as the X server has it."""

import time

from PIL import Image
from Xlib import X

from .waiting import wait_for

_STILL = 0.15  # seconds; a caret that blinks rests for half a second


def take(display):
    """The whole screen as an RGB picture."""
    root = display.screen().root
    size = root.get_geometry()
    raw = root.get_image(0, 0, size.width, size.height, X.ZPixmap, 0xFFFFFFFF)
    return Image.frombytes("RGB", (size.width, size.height), raw.data, "raw", "BGRX")


def take_still(display):
    """The screen once nothing on it has moved for a while."""
    seen, since = take(display), time.monotonic()

    def is_still():
        nonlocal seen, since
        picture = take(display)
        if picture.tobytes() != seen.tobytes():
            seen, since = picture, time.monotonic()
        return time.monotonic() - since >= _STILL

    wait_for(is_still, "the screen to come to rest")
    return seen
