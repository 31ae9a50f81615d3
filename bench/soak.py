#!/usr/bin/env python3
"""Opens sites, checks them, stops opens and checks in the middle, writes reports and clears the session, round after round in one
program, and watches its memory and its file descriptors. Prints a line every few minutes and the verdict at the end.

usage: soak.py BUILD-FOLDER [MINUTES] [PROGRAM]       an hour of quorvantis-headless, if nothing else is said
"""
import os
import sys
import time
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent.parent / "tests" / "endtoend"))
from program import Program, Scratch  # noqa: E402
from servers import Nginx, OddServer, page  # noqa: E402

PAGES = 60
HTML, AUTO = 6842, 7285


def memory(process):
    """What the process has in memory now, in KB."""
    for line in Path("/proc/%d/status" % process.pid).read_text().splitlines():
        if line.startswith("VmRSS"):
            return int(line.split()[1])


def descriptors(process):
    return len(list(Path("/proc/%d/fd" % process.pid).iterdir()))


class Soak:
    def __init__(self):
        self.scratch = Scratch()
        Program(self.scratch).close()
        self.scratch.patch("preferen.zdt", {HTML: -1, AUTO: -1})
        (self.scratch.home / "Reports").mkdir(exist_ok=True)
        self.site = Nginx({"p%d.html" % n: page("p0.html", "gone%d" % n, *("p%d.html" % m for m in (2 * n + 1, 2 * n + 2) if m < PAGES))
                           for n in range(PAGES)} | {"index.html": page("p0.html")})
        self.silent = OddServer({"*": "silent"})
        (self.site.root / "site" / "slow.html").write_bytes(page(*(self.silent.url("s%d" % n) for n in range(5))))
        self.program = Program(self.scratch)

    def settle(self, request):
        """Waits for the end of a command; messages are answered, and windows that come with it are closed."""
        p = self.program
        p.settle(request)
        for form in p.do("forms")["forms"]:
            if form["name"] != "CheckForm":
                p.do("close", form["name"])

    def begin_site(self):
        p = self.program
        request = p.send("click", "CheckForm.Command1")
        p.event("modal", form="WizardForm")
        p.do("set", "WizardForm.Text1", value=self.site.url())
        p.click("WizardForm.ComOpenNext")
        return request

    def round(self, number):
        p = self.program
        p.click("CheckForm.MenuFileNew")
        request = self.begin_site()  # a site, stopped in the middle every other time
        if number % 2 == 1:
            p.until(lambda: len(p.documents()) > 5)
            p.click("CheckForm.Command1")
        self.settle(request)
        p.click("CheckForm.MenuFileNew")
        self.settle(self.begin_site())
        assert len(p.documents()) == PAGES + 1, len(p.documents())
        self.settle(p.send("click", "CheckForm.ComStart"))  # with its report
        p.click("CheckForm.MenuFileNew")
        opening = p.begin_open(self.site.url("slow.html"))
        self.settle(opening)
        asked = len(self.silent.asked())
        request = p.send("click", "CheckForm.ComStart")  # stopped while it waits
        p.until(lambda: len(self.silent.asked()) > asked)
        p.click("CheckForm.ComStop")
        self.settle(request)
        p.seen.clear()

    def end(self):
        self.program.close()
        self.site.stop()
        self.silent.stop()
        self.scratch.remove()


def main():
    build = Path(sys.argv[1]).resolve()
    minutes = float(sys.argv[2]) if len(sys.argv) > 2 else 60
    os.environ["QUORVANTIS_PROGRAM"] = str(build / "bin" / (sys.argv[3] if len(sys.argv) > 3 else "quorvantis-headless"))
    soak = Soak()
    end = time.monotonic() + minutes * 60
    samples, told, number = [], 0.0, 0
    while time.monotonic() < end:
        soak.round(number)
        number += 1
        samples.append((memory(soak.program.process), descriptors(soak.program.process)))
        if time.monotonic() > told + minutes * 6:
            told = time.monotonic()
            print("round %5d: %6.1f MB, %d descriptors" % (number, samples[-1][0] / 1024, samples[-1][1]), flush=True)
    soak.end()
    warm = samples[len(samples) // 10:]  # the first tenth fills caches
    half = len(warm) // 2
    early, late = (sorted(m for m, _ in part)[len(part) // 2] for part in (warm[:half], warm[half:]))
    files = {d for _, d in warm}
    print("%d rounds in %.0f minutes; memory: median of the first half %.1f MB, of the second %.1f MB; descriptors: %s" % (
        number, minutes, early / 1024, late / 1024, "%d to %d" % (min(files), max(files))))
    level = late < early * 1.02 + 512 and max(files) - min(files) <= 8 and samples[-1][1] <= warm[0][1] + 2
    print("level" if level else "NOT LEVEL")
    return 0 if level else 1


if __name__ == "__main__":
    sys.exit(main())
