"""Pictures of the screen."""

from PIL import Image
from Xlib import X

from .waiting import wait_for


def take(display):
    """The whole screen as a picture."""
    root = display.screen().root
    size = root.get_geometry()
    raw = root.get_image(0, 0, size.width, size.height, X.ZPixmap, 0xFFFFFFFF)
    return Image.frombytes("RGB", (size.width, size.height), raw.data, "raw", "BGRX")


def take_still(display, frames=8):
    """The screen once nothing on it has moved for as many looks in a row."""
    seen = []

    def is_still():
        seen.append(take(display))
        del seen[:-frames]
        return len(seen) == frames and all(
            picture.tobytes() == seen[-1].tobytes() for picture in seen)

    wait_for(is_still, "the screen to come to rest")
    return seen[-1]
