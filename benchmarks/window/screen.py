"""A pointer and keys without a process for each, and whether a part of the screen has changed; times to the millisecond."""

import ctypes
import time

_ALL_PLANES = 0xFFFFFFFF
_Z_PIXMAP = 2


class _Image(ctypes.Structure):
    """XImage as Xlib.h has it, as far as it is read here."""
    _fields_ = [("width", ctypes.c_int), ("height", ctypes.c_int), ("xoffset", ctypes.c_int), ("format", ctypes.c_int),
                ("data", ctypes.c_void_p), ("byte_order", ctypes.c_int), ("bitmap_unit", ctypes.c_int),
                ("bitmap_bit_order", ctypes.c_int), ("bitmap_pad", ctypes.c_int), ("depth", ctypes.c_int),
                ("bytes_per_line", ctypes.c_int)]


class Screen:
    """A connection of its own to a display."""

    def __init__(self, name):
        self._x = ctypes.CDLL("libX11.so.6")
        self._test = ctypes.CDLL("libXtst.so.6")
        for function, result in (("XOpenDisplay", ctypes.c_void_p), ("XDefaultRootWindow", ctypes.c_ulong),
                                 ("XGetImage", ctypes.POINTER(_Image)), ("XStringToKeysym", ctypes.c_ulong),
                                 ("XKeysymToKeycode", ctypes.c_ubyte)):
            getattr(self._x, function).restype = result
        self._display = ctypes.c_void_p(self._x.XOpenDisplay(name.encode()))
        if not self._display:
            raise RuntimeError(f"there is no display {name}")
        self._root = ctypes.c_ulong(self._x.XDefaultRootWindow(self._display))

    def _sent(self):
        """When what was asked for is with the server."""
        self._x.XFlush(self._display)
        return time.monotonic()

    def _code(self, key):
        return self._x.XKeysymToKeycode(self._display, ctypes.c_ulong(self._x.XStringToKeysym(key.encode())))

    def key(self, keys):
        """Presses and releases, as "Control_L+m"."""
        codes = [self._code(key) for key in keys.split("+")]
        for code, down in [(code, 1) for code in codes] + [(code, 0) for code in reversed(codes)]:
            self._test.XTestFakeKeyEvent(self._display, code, down, 0)
        return self._sent()

    def click(self, button=1):
        for down in (1, 0):
            self._test.XTestFakeButtonEvent(self._display, button, down, 0)
        return self._sent()

    def move(self, x, y):
        """By two moves: one alone may be no move at all."""
        for step in (2, 0):
            self._test.XTestFakeMotionEvent(self._display, -1, int(x) + step, int(y), 0)
        return self._sent()

    def look(self, rectangle):
        """What is there now, as the server's bytes: four for each point, row by row."""
        x, y, width, height = map(int, rectangle)
        image = self._x.XGetImage(self._display, self._root, x, y, width, height, _ALL_PLANES, _Z_PIXMAP)
        if not image:
            raise RuntimeError("the display has no picture")
        try:
            return ctypes.string_at(image.contents.data, image.contents.bytes_per_line * height)
        finally:
            self._x.XDestroyImage(image)

    def wait_until_still(self, rectangle, seconds=0.4, patience=15):
        """What is there when nothing has changed for so long."""
        deadline = time.monotonic() + patience
        seen, since = self.look(rectangle), time.monotonic()
        while time.monotonic() - since < seconds:
            time.sleep(0.02)
            now = self.look(rectangle)
            if now != seen:
                seen, since = now, time.monotonic()
            if time.monotonic() > deadline:
                raise RuntimeError(f"{rectangle} never stands still")
        return seen

    def time_of_change(self, rectangle, before, patience=2):
        """When something else than before is there."""
        deadline = time.monotonic() + patience
        while time.monotonic() < deadline:
            if self.look(rectangle) != before:
                return time.monotonic()
            time.sleep(0.001)
        raise RuntimeError(f"nothing changes in {rectangle}")
