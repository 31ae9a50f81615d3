"""A window that does what a browser's does when its address box is asked for: Ctrl+L enters the box, Ctrl+Insert copies what is
selected there, Escape leaves it.

usage: browser_window.py TITLE ADDRESS LOG      a word for each key in LOG; ends when its input ends
"""
import ctypes
import os
import select
import sys

KEY_PRESS, SELECTION_REQUEST, SELECTION_NOTIFY = 2, 30, 31
KEY_PRESS_MASK, CONTROL = 1, 4
ULONG, INT = ctypes.c_ulong, ctypes.c_int
NAMES = {0x6C: "l", 0xFF63: "Insert", 0xFF1B: "Escape"}


class Event(ctypes.Structure):
    """The part that all events begin with, and room for the rest as whole numbers."""
    _fields_ = [("type", INT), ("serial", ULONG), ("sent", INT), ("display", ctypes.c_void_p), ("rest", ULONG * 20)]


class Key(ctypes.Structure):
    _fields_ = [("head", ULONG * 4), ("windows", ULONG * 3), ("time", ULONG), ("places", INT * 4), ("state", ctypes.c_uint),
                ("code", ctypes.c_uint)]


class Browser:
    def __init__(self, title, address, log):
        self.address, self.log = address.encode(), log
        x = self.x = ctypes.CDLL("libX11.so.6")
        x.XOpenDisplay.restype = ctypes.c_void_p
        for name, kinds in {"XDefaultRootWindow": [], "XConnectionNumber": [], "XPending": [], "XFlush": [],
                            "XCreateSimpleWindow": [ULONG, INT, INT, ctypes.c_uint, ctypes.c_uint, ctypes.c_uint, ULONG, ULONG],
                            "XStoreName": [ULONG, ctypes.c_char_p], "XSelectInput": [ULONG, ctypes.c_long], "XMapRaised": [ULONG],
                            "XNextEvent": [ctypes.c_void_p], "XInternAtom": [ctypes.c_char_p, INT],
                            "XSetSelectionOwner": [ULONG, ULONG, ULONG], "XSendEvent": [ULONG, INT, ctypes.c_long, ctypes.c_void_p],
                            "XChangeProperty": [ULONG, ULONG, ULONG, INT, INT, ctypes.c_char_p, INT]}.items():
            getattr(x, name).argtypes = [ctypes.c_void_p, *kinds]
            getattr(x, name).restype = ULONG
        x.XLookupKeysym.argtypes, x.XLookupKeysym.restype = [ctypes.c_void_p, INT], ULONG
        self.display = x.XOpenDisplay(None)
        self.window = x.XCreateSimpleWindow(self.display, x.XDefaultRootWindow(self.display), 0, 0, 300, 200, 0, 0, 0)
        x.XStoreName(self.display, self.window, title.encode())
        x.XSelectInput(self.display, self.window, KEY_PRESS_MASK)
        x.XMapRaised(self.display, self.window)
        self.entered = False

    def atom(self, name):
        return self.x.XInternAtom(self.display, name, 0)

    def pressed(self, event):
        key = ctypes.cast(ctypes.byref(event), ctypes.POINTER(Key)).contents
        name = NAMES.get(self.x.XLookupKeysym(ctypes.byref(event), 0))
        if name is None:
            return
        word = ("ctrl+" if key.state & CONTROL else "") + name
        with open(self.log, "a") as log:
            log.write(word + "\n")
        if word == "ctrl+l":
            self.entered = True
        if word == "ctrl+Insert" and self.entered:
            self.x.XSetSelectionOwner(self.display, self.atom(b"CLIPBOARD"), self.window, key.time)

    def asked(self, event):
        _, requestor, selection, target, field, time = event.rest[:6]
        if target == self.atom(b"UTF8_STRING"):
            self.x.XChangeProperty(self.display, requestor, field, target, 8, 0, self.address, len(self.address))
        elif target == self.atom(b"TARGETS"):
            known = (ULONG * 1)(self.atom(b"UTF8_STRING"))
            self.x.XChangeProperty(self.display, requestor, field, self.atom(b"ATOM"), 32, 0, ctypes.cast(known, ctypes.c_char_p), 1)
        else:
            field = 0
        answer = Event(type=SELECTION_NOTIFY, display=self.display)
        answer.rest[:5] = [requestor, selection, target, field, time]
        self.x.XSendEvent(self.display, requestor, 0, 0, ctypes.byref(answer))

    def run(self):
        event = Event()
        while True:
            while self.x.XPending(self.display):
                self.x.XNextEvent(self.display, ctypes.byref(event))
                if event.type == KEY_PRESS:
                    self.pressed(event)
                elif event.type == SELECTION_REQUEST:
                    self.asked(event)
            self.x.XFlush(self.display)
            ready, _, _ = select.select([self.x.XConnectionNumber(self.display), 0], [], [])
            if 0 in ready and not os.read(0, 1):
                return


Browser(*sys.argv[1:4]).run()
