#!/usr/bin/env python3
"""The time from a click on Stop to the end of its handler and of the run, while a server says nothing: 30 times, in a real window
under Xvfb, and without windows.

usage: stop.py BUILD-FOLDER
"""
import os
import statistics
import sys
import time
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent.parent / "tests" / "endtoend"))
from program import Program, Scratch  # noqa: E402
from servers import OddServer  # noqa: E402

TIMES = 30


def measure(name, folder):
    os.environ["QUORVANTIS_PROGRAM"] = str(Path(folder).resolve() / "bin" / name)
    server = OddServer({"*": "silent"})
    scratch = Scratch()
    scratch.document("http://127.0.0.1:9/doc.htm", [server.url("%d.html" % n) for n in range(50)])
    program = Program(scratch)
    handler, whole = [], []
    for number in range(TIMES):
        run = program.send("click", "CheckForm.ComStart")
        program.until(lambda: len(server.asked()) > number)
        start = time.monotonic()
        program.click("CheckForm.ComStop")
        handler.append(time.monotonic() - start)
        program.reply(run)
        whole.append(time.monotonic() - start)
    program.close()
    scratch.remove()
    server.stop()
    for what, times in (("the handler has returned", handler), ("the run has ended", whole)):
        print("%-20s %-26s median %6.2f ms, longest %6.2f ms" % (
            name, what, statistics.median(times) * 1000, max(times) * 1000), flush=True)


for program_name in ("quorvantis", "quorvantis-headless"):
    measure(program_name, sys.argv[1])
