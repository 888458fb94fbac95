"""What a window manager does: gives the keyboard to the window that stands in front."""

import ctypes
import ctypes.util


class Attributes(ctypes.Structure):
    """The begin of XWindowAttributes is not looked at."""
    _fields_ = [("place", ctypes.c_int * 5), ("visual", ctypes.c_void_p), ("root", ctypes.c_ulong),
                ("kind", ctypes.c_int), ("gravity", ctypes.c_int * 3), ("planes", ctypes.c_ulong * 2),
                ("save", ctypes.c_int), ("colours", ctypes.c_ulong), ("installed", ctypes.c_int),
                ("map_state", ctypes.c_int), ("masks", ctypes.c_long * 3), ("popup", ctypes.c_int),
                ("screen", ctypes.c_void_p)]


class Screen:
    VIEWABLE, INPUT_OUTPUT, REVERT_TO_ROOT = 2, 1, 1

    def __init__(self):
        self.x = ctypes.CDLL(ctypes.util.find_library("X11") or "libX11.so.6")
        self.x.XOpenDisplay.restype = ctypes.c_void_p
        self.x.XDefaultRootWindow.restype = ctypes.c_ulong
        # A window can go while it is asked for; the default would end this program.
        handler = ctypes.CFUNCTYPE(ctypes.c_int, ctypes.c_void_p, ctypes.c_void_p)
        self.ignored = handler(lambda display, error: 0)
        self.x.XSetErrorHandler(self.ignored)
        self.display = ctypes.c_void_p(self.x.XOpenDisplay(None))

    def windows(self):
        """Those of the screen, the one in front last."""
        root, parent = ctypes.c_ulong(), ctypes.c_ulong()
        found, count = ctypes.POINTER(ctypes.c_ulong)(), ctypes.c_uint()
        self.x.XQueryTree(self.display, ctypes.c_ulong(self.x.XDefaultRootWindow(self.display)),
                          ctypes.byref(root), ctypes.byref(parent), ctypes.byref(found), ctypes.byref(count))
        return [found[i] for i in range(count.value)]

    def give_focus(self):
        """Not to a menu, which takes the keyboard itself."""
        for window in reversed(self.windows()):
            about = Attributes()
            self.x.XGetWindowAttributes(self.display, ctypes.c_ulong(window), ctypes.byref(about))
            if about.map_state == self.VIEWABLE and about.kind == self.INPUT_OUTPUT and not about.popup:
                self.x.XSetInputFocus(self.display, ctypes.c_ulong(window), self.REVERT_TO_ROOT, 0)
                break
        self.x.XSync(self.display, 0)
