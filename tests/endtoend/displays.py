"""X servers without a screen, one for each thread that runs desktop programs, so that they don't take each other's focus."""
import atexit
import os
import subprocess
import threading

_mine = threading.local()


def display(size="1280x800"):
    """The display of this thread; started when it is first asked for."""
    if not hasattr(_mine, "name"):
        _mine.name = start(size)
    return _mine.name


def start(size):
    read, write = os.pipe()
    server = subprocess.Popen(["Xvfb", "-displayfd", str(write), "-screen", "0", size + "x24", "-nolisten", "tcp"],
                              stderr=subprocess.DEVNULL, pass_fds=[write])
    os.close(write)
    with os.fdopen(read) as answer:
        name = ":" + answer.readline().strip()
    atexit.register(_stop, server)
    return name


def _stop(server):
    server.terminate()
    server.wait()
