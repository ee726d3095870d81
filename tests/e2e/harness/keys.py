"""Real input: what is pressed here goes through the X server like a hand's."""

import time

from Xlib import XK, X
from Xlib.ext import xtest

# Presses of one modifier that are further apart belong to no double tap.
_BETWEEN_TAPS_MS = 350
# Slow enough for a window manager that takes the mouse over after the first few pixels.
_DRAG_STEP_MS = 40
_DRAG_BEGINNING = 4
_NAMES = {"\n": "Return", "\t": "Tab", " ": "space"}


class Keyboard:
    """Presses keys. Intervals are kept by the server, whatever this process is doing."""

    def __init__(self, display):
        self._display = display
        self._last_control = 0.0

    def press(self, key, after_ms=0):
        self._fake(X.KeyPress, self._keycode(key)[0], after_ms)
        if key == "Control_L":
            self._last_control = time.monotonic() + after_ms / 1000

    def release(self, key, after_ms=0):
        self._fake(X.KeyRelease, self._keycode(key)[0], after_ms)

    def tap(self, key, modifiers=(), after_ms=0):
        """Presses and releases `key` while `modifiers` are held: tap("v", ["Control_L"])."""
        code, shifted = self._keycode(key)
        modifiers = list(modifiers) + (["Shift_L"] if shifted else [])
        if "Control_L" in modifiers:
            after_ms = max(after_ms, self._until_control_is_no_tap())
        for modifier in modifiers:
            self.press(modifier, after_ms)
            after_ms = 0
        self._fake(X.KeyPress, code, after_ms)
        self._fake(X.KeyRelease, code)
        for modifier in reversed(modifiers):
            self.release(modifier)
        self._display.sync()

    def type(self, text):
        for character in text:
            self.tap(_NAMES.get(character, character))

    def double_tap(self, key="Control_L", interval_ms=120, between=None):
        """Two presses of `key`, the second `interval_ms` after the first.

        `between` names a key that is tapped between the two.
        """
        half = interval_ms // 2
        self.press(key, self._until_control_is_no_tap())
        self.release(key, half)
        if between:
            self.tap(between)
        self.press(key, interval_ms - half)
        self.release(key, 20)
        self._display.sync()
        self._last_control = time.monotonic()

    def _until_control_is_no_tap(self):
        """How long to wait so that the next press makes no double tap with the last one."""
        passed = (time.monotonic() - self._last_control) * 1000
        return max(0, round(_BETWEEN_TAPS_MS - passed))

    def _fake(self, kind, detail, after_ms=0):
        xtest.fake_input(self._display, kind, detail, time=after_ms)
        self._display.flush()

    def _keycode(self, key):
        keysym = XK.string_to_keysym(key)
        if keysym == XK.NoSymbol and len(key) == 1:
            keysym = ord(key)
        for code, index in self._display.keysym_to_keycodes(keysym):
            if index in (0, 1):
                return code, index == 1
        raise ValueError(f"no key of this keyboard makes {key!r}")


class Pointer:
    """Moves the mouse and clicks, in pixels of the whole screen."""

    def __init__(self, display):
        self._display = display

    def move(self, x, y):
        xtest.fake_input(self._display, X.MotionNotify, x=int(x), y=int(y))
        self._display.sync()

    def click(self, x, y, button=1):
        self.move(x, y)
        xtest.fake_input(self._display, X.ButtonPress, button)
        xtest.fake_input(self._display, X.ButtonRelease, button)
        self._display.sync()

    def drag(self, start, end, steps=8, linger_ms=_DRAG_STEP_MS):
        """Presses the left button at `start` and lets it go at `end`; begins slowly, as a hand.

        It rests for `linger_ms` before it lets go: who is dropped upon has to say yes first.
        """
        self.move(*start)
        xtest.fake_input(self._display, X.ButtonPress, 1)
        length = max(abs(end[0] - start[0]), abs(end[1] - start[1]))
        beginning = [pixels / length for pixels in range(1, _DRAG_BEGINNING + 1)]
        for share in [*beginning, *(step / steps for step in range(1, steps + 1))]:
            xtest.fake_input(
                self._display, X.MotionNotify, time=_DRAG_STEP_MS,
                x=round(start[0] + (end[0] - start[0]) * share),
                y=round(start[1] + (end[1] - start[1]) * share))
        xtest.fake_input(self._display, X.ButtonRelease, 1, time=linger_ms)
        self._display.sync()

    def position(self):
        answer = self._display.screen().root.query_pointer()
        return answer.root_x, answer.root_y
