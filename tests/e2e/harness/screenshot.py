"""Pictures of the screen."""

from PIL import Image
from Xlib import X


def take(display):
    """The whole screen as a picture."""
    root = display.screen().root
    size = root.get_geometry()
    raw = root.get_image(0, 0, size.width, size.height, X.ZPixmap, 0xFFFFFFFF)
    return Image.frombytes("RGB", (size.width, size.height), raw.data, "raw", "BGRX")
