"""The virtual screen through the X server alone, without a process for each look: what is measured in milliseconds, and
what a copy shows that is too busy to answer on the accessibility bus.
"""

import ctypes

_RETURN, _ALT, _F4 = 0xFF0D, 0xFFE9, 0xFFC1
_ALL_PLANES = ctypes.c_ulong(-1).value
_Z_PIXMAP = 2
_LEFT_BUTTON = 1


class _Image(ctypes.Structure):
    """The beginning of XImage."""

    _fields_ = [
        ("width", ctypes.c_int),
        ("height", ctypes.c_int),
        ("xoffset", ctypes.c_int),
        ("format", ctypes.c_int),
        ("data", ctypes.c_void_p),
        ("byte_order", ctypes.c_int),
        ("bitmap_unit", ctypes.c_int),
        ("bitmap_bit_order", ctypes.c_int),
        ("bitmap_pad", ctypes.c_int),
        ("depth", ctypes.c_int),
        ("bytes_per_line", ctypes.c_int),
    ]


class Eye:
    def __init__(self):
        self._x = ctypes.CDLL("libX11.so.6")
        self._test = ctypes.CDLL("libXtst.so.6")
        for name, result in (
            ("XOpenDisplay", ctypes.c_void_p),
            ("XDefaultRootWindow", ctypes.c_ulong),
            ("XInternAtom", ctypes.c_ulong),
            ("XGetImage", ctypes.POINTER(_Image)),
        ):
            getattr(self._x, name).restype = result
        self._display = ctypes.c_void_p(self._x.XOpenDisplay(None))
        self._root = ctypes.c_ulong(self._x.XDefaultRootWindow(self._display))
        # A window may go between two calls about it.
        self._handler = ctypes.CFUNCTYPE(ctypes.c_int, ctypes.c_void_p, ctypes.c_void_p)(lambda *_: 0)
        self._x.XSetErrorHandler(self._handler)

    def active_window(self):
        return next(iter(self._numbers(b"_NET_ACTIVE_WINDOW")), 0)

    def windows(self):
        """Main windows and boxes of all programs."""
        return self._numbers(b"_NET_CLIENT_LIST")

    def title(self, window):
        return self._property(ctypes.c_ulong(window), b"_NET_WM_NAME", ctypes.c_char).decode()

    def _numbers(self, name):
        return self._property(self._root, name, ctypes.c_ulong)

    def _property(self, window, name, item):
        kind, form = ctypes.c_ulong(), ctypes.c_int()
        count, left, data = ctypes.c_ulong(), ctypes.c_ulong(), ctypes.c_void_p()
        atom = ctypes.c_ulong(self._x.XInternAtom(self._display, name, 0))
        self._x.XGetWindowProperty(
            self._display,
            window,
            atom,
            ctypes.c_long(0),
            ctypes.c_long(1024),
            0,
            ctypes.c_ulong(0),
            *(ctypes.byref(out) for out in (kind, form, count, left, data)),
        )
        if not data.value:
            return b"" if item is ctypes.c_char else []
        found = (item * count.value).from_address(data.value)[:]
        self._x.XFree(data)
        return found

    def pixels(self, x, y, width, height):
        """What a part of the screen shows."""
        plane = ctypes.c_ulong(_ALL_PLANES)
        image = self._x.XGetImage(self._display, self._root, x, y, width, height, plane, _Z_PIXMAP)
        shown = ctypes.string_at(image.contents.data, image.contents.bytes_per_line * height)
        self._x.XFree(ctypes.c_void_p(image.contents.data))
        self._x.XFree(image)
        return shown

    def click(self, x, y):
        self._test.XTestFakeMotionEvent(self._display, -1, x, y, ctypes.c_ulong(0))
        for down in (1, 0):
            self._test.XTestFakeButtonEvent(self._display, _LEFT_BUTTON, down, ctypes.c_ulong(0))
        self._x.XSync(self._display, 0)

    def press_return(self):
        self._press(_RETURN)

    def ask_to_close(self):
        """Alt+F4, which the window manager makes a request to close."""
        self._press(_ALT, _F4)

    def _press(self, *keys):
        codes = [self._x.XKeysymToKeycode(self._display, ctypes.c_ulong(key)) for key in keys]
        for code in codes:
            self._test.XTestFakeKeyEvent(self._display, code, 1, ctypes.c_ulong(0))
        for code in reversed(codes):
            self._test.XTestFakeKeyEvent(self._display, code, 0, ctypes.c_ulong(0))
        self._x.XSync(self._display, 0)
