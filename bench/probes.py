#!/usr/bin/env python3
"""What a check costs: probes a second beside a bare libcurl loop over the same server, for documents of 1,000 and 20,000 links;
the peak memory with 100,000 links; the CPU time of a wait on a silent server.

usage: probes.py BUILD-FOLDER       (built with: ninja -C BUILD-FOLDER quorvantis-headless benches)
"""
import os
import subprocess
import sys
import time
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent.parent / "tests" / "endtoend"))
from program import Program, Scratch  # noqa: E402
from servers import Nginx, OddServer  # noqa: E402


def field(process, name):
    """A line of the process's status, in kilobytes."""
    for line in Path("/proc/%d/status" % process.pid).read_text().splitlines():
        if line.startswith(name):
            return int(line.split()[1])


def cpu_seconds(process):
    fields = Path("/proc/%d/stat" % process.pid).read_text().rsplit(")", 1)[1].split()
    return (int(fields[11]) + int(fields[12])) / os.sysconf("SC_CLK_TCK")


def checked(links):
    """Seconds that a check of these links takes, and the peak memory in MB."""
    scratch = Scratch()
    scratch.document("http://127.0.0.1:9/doc.htm", links)
    program = Program(scratch)
    start = time.monotonic()
    line = program.check(600)
    seconds = time.monotonic() - start
    assert line.startswith("None of %d " % len(links)), line
    peak = field(program.process, "VmHWM") / 1024
    program.close()
    scratch.remove()
    return seconds, peak


def main():
    build = Path(sys.argv[1]).resolve()
    os.environ["QUORVANTIS_PROGRAM"] = str(build / "bin" / "quorvantis-headless")
    most = 20000
    site = Nginx({"%d.htm" % n: b"x" for n in range(most)})
    try:
        for count in (1000, most):
            links = [site.url("%d.htm" % n) for n in range(count)]
            loop = [str(build / "bench" / "bench_head_loop"), site.url(), str(count)]
            pairs = []      # taken in turns, so that a busy machine slows both down
            for _ in range(7):
                pairs.append((count / checked(links)[0], float(subprocess.check_output(loop))))
            ratios = sorted(ours / bare for ours, bare in pairs)
            print("%6d links: %7.0f probes/s, bare libcurl loop %7.0f/s (best of each); ratios %s" % (
                count, max(p[0] for p in pairs), max(p[1] for p in pairs), " ".join("%.2f" % r for r in ratios)), flush=True)
        seconds, peak = checked([site.url("%d.htm?n=%d" % (n % most, n)) for n in range(100000)])
        print("100000 links: %7.0f probes/s, peak memory %.0f MB" % (100000 / seconds, peak), flush=True)
    finally:
        site.stop()
    silent = OddServer({"/a": "silent"})
    scratch = Scratch()
    scratch.document("http://127.0.0.1:9/doc.htm", [silent.url("a")])
    program = Program(scratch)
    program.send("click", "CheckForm.ComStart")
    program.until(lambda: silent.asked())
    before = cpu_seconds(program.process)
    time.sleep(10)
    print("10 s of waiting on a silent server: %.2f s of CPU time" % (cpu_seconds(program.process) - before))
    program.kill()
    silent.stop()
    scratch.remove()


if __name__ == "__main__":
    main()
