"""A user's hands at the desktop program: a real mouse and a real keyboard, by xdotool on this thread's display."""
import ctypes
import os
import re
import subprocess

from displays import display


class Hands:
    def __init__(self, program):
        self.program = program

    def tool(self, *arguments):
        return subprocess.run(["xdotool", *map(str, arguments)], env=dict(os.environ, DISPLAY=display()), check=True,
                              capture_output=True, text=True, timeout=20).stdout.split()

    def window(self, title):
        """The number of the window whose whole title this pattern matches; waits for it."""
        def find():
            try:
                return self.tool("search", "--onlyvisible", "--name", "^%s$" % title)[0]
            except (subprocess.CalledProcessError, IndexError):
                return None  # not yet, or a window went while all were looked at
        return self.program.until(find)

    def front(self, title):
        """Waits until the window whose title this pattern matches has the keyboard. Gives its number."""
        number = self.window(title)

        def has_keyboard():
            try:
                return re.fullmatch(title, " ".join(self.tool("getwindowfocus", "getwindowname"))) is not None
            except subprocess.CalledProcessError:
                return False  # nobody has it, or the one that had it went
        self.program.until(has_keyboard)
        return number

    def size(self, title):
        lines = self.tool("getwindowgeometry", "--shell", self.window(title))
        values = dict(line.split("=") for line in lines)
        return int(values["WIDTH"]), int(values["HEIGHT"])

    def key(self, *keys):
        self.tool("key", "--delay", "20", *keys)

    def type(self, text):
        self.tool("type", "--delay", "5", text)

    def place(self, at, row=None):
        """The middle of a control, or of a row of a list."""
        state = self.program.state(at)
        left, top, width, height = state["place"] if row is None else state["rows"][str(row)]
        return left + min(width // 2, 60), top + height // 2

    def move(self, at, row=None):
        x, y = self.place(at, row)
        self.tool("mousemove", x, y)
        self.program.until(lambda: self.tool("getmouselocation")[:2] == ["x:%d" % x, "y:%d" % y])

    def click(self, at, row=None, button=1):
        self.move(at, row)
        self.tool("click", button)

    def press(self, at):
        self.move(at)
        self.tool("mousedown", 1)

    def release(self):
        self.tool("mouseup", 1)

    def resize(self, title, width, height):
        self.tool("windowsize", "--sync", self.window(title), width, height)

    def close_box(self, title):
        """What a window manager does when its close box is clicked."""
        window = int(self.window(title))
        x11 = ctypes.CDLL("libX11.so.6")
        x11.XOpenDisplay.restype = ctypes.c_void_p
        x11.XInternAtom.restype = ctypes.c_ulong
        x11.XInternAtom.argtypes = [ctypes.c_void_p, ctypes.c_char_p, ctypes.c_int]
        x11.XSendEvent.argtypes = [ctypes.c_void_p, ctypes.c_ulong, ctypes.c_int, ctypes.c_long, ctypes.c_void_p]
        x11.XSync.argtypes = [ctypes.c_void_p, ctypes.c_int]
        x11.XCloseDisplay.argtypes = [ctypes.c_void_p]

        class ClientMessage(ctypes.Structure):
            _fields_ = [("type", ctypes.c_int), ("serial", ctypes.c_ulong), ("send_event", ctypes.c_int),
                        ("display", ctypes.c_void_p), ("window", ctypes.c_ulong), ("message_type", ctypes.c_ulong),
                        ("format", ctypes.c_int), ("data", ctypes.c_long * 5), ("room", ctypes.c_long * 24)]

        screen = x11.XOpenDisplay(display().encode())
        message = ClientMessage(type=33, window=window, format=32,
                                message_type=x11.XInternAtom(screen, b"WM_PROTOCOLS", 0))
        message.data[0] = x11.XInternAtom(screen, b"WM_DELETE_WINDOW", 0)
        x11.XSendEvent(screen, window, 0, 0, ctypes.byref(message))
        x11.XSync(screen, 0)
        x11.XCloseDisplay(screen)
