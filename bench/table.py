#!/usr/bin/env python3
"""All figures as one table (Markdown): what was measured, the figure, the limit beside it, the ratio of both, the peak memory.
Figures and limits are taken in turns, and the median of their ratios is told.

usage: table.py BUILD-FOLDER [PART...]       (bench/run builds first; parts: importer probes walk start_up reports windows)
"""
import os
import re
import statistics
import subprocess
import sys
import time
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent.parent / "tests" / "endtoend"))
from displays import display  # noqa: E402
from program import Program, Scratch  # noqa: E402
from servers import Nginx, page  # noqa: E402

ROUNDS = 5
PARTS = ["importer", "probes", "walk", "start_up", "reports", "windows"]


def peak(process):
    """The most memory that a process has had, in MB."""
    for line in Path("/proc/%d/status" % process.pid).read_text().splitlines():
        if line.startswith("VmHWM"):
            return int(line.split()[1]) / 1024


def clocked(work):
    start = time.monotonic()
    result = work()
    return time.monotonic() - start, result


def tell(what, figure, limit="", ratio="", memory=""):
    print("| %s | %s | %s | %s | %s |" % (what, figure, limit, ratio, memory), flush=True)


class Bench:
    def __init__(self, build):
        self.build = build

    def tool(self, name, *arguments):
        environment = dict(os.environ, QT_QPA_PLATFORM="offscreen")
        return subprocess.check_output([str(self.build / "bench" / name), *map(str, arguments)], text=True, env=environment)

    def use(self, program):
        os.environ["QUORVANTIS_PROGRAM"] = str(self.build / "bin" / program)

    def importer(self):
        output = self.tool("bench_importer")
        rates = {name: float(rate) for name, rate in re.findall(r"^(importer|bare pass|libgumbo) +(\d+) MB/s", output, re.M)}
        tell("Importer, ordinary pages", "%.0f MB/s" % rates["importer"], "`memchr` for `<` over the same bytes: %.0f MB/s" % rates["bare pass"],
             "%.2f of it" % (rates["importer"] / rates["bare pass"]))
        if "libgumbo" in rates:
            tell("", "", "libgumbo's whole tree: %.0f MB/s" % rates["libgumbo"], "%.0f times as fast" % (rates["importer"] / rates["libgumbo"]))
        hostile = {}
        for name, times in re.findall(r"^(.+?)((?: +[\d.]+ ms){4})$", output, re.M):
            hostile[name.strip()] = [float(time) for time in re.findall(r"[\d.]+", times)]  # 1, 2, 4 and 8 MB
        slowest, name = min((8000 / times[3], name) for name, times in hostile.items())
        tell("Importer, hostile pages: slowest of %d" % len(hostile), "%.0f MB/s (%s)" % (slowest, name.replace("<", "&lt;")),
             "twice the page, twice the time: 2", "at most %.2f" % max(times[3] / times[2] for times in hostile.values()))

    def probes(self):
        count = 20000
        site = Nginx({"%d.htm" % n: b"x" for n in range(count)})
        links = [site.url("%d.htm" % n) for n in range(count)]
        pairs = []
        for _ in range(ROUNDS):
            seconds, _, _ = self.check(links)
            pairs.append((count / seconds, float(self.tool("bench_head_loop", site.url(), count))))
        tell("Check of 20,000 links", "%.0f probes/s" % statistics.median(p[0] for p in pairs),
             "bare libcurl loop, one connection: %.0f/s" % statistics.median(p[1] for p in pairs),
             "%.2f of it" % statistics.median(ours / bare for ours, bare in pairs))
        seconds, before, after = self.check([site.url("%d.htm?n=%d" % (n % count, n)) for n in range(50000)])
        tell("Check of 50,000 links", "%.1f s, %.0f probes/s" % (seconds, 50000 / seconds), "", "", "%.0f MB (%.0f MB before)" % (after, before))
        site.stop()

    def check(self, links):
        """Seconds that a check of these links takes, and the peak memory before and after it."""
        scratch = Scratch()
        scratch.document("http://127.0.0.1:9/doc.htm", links)
        program = Program(scratch)
        before = peak(program.process)
        seconds, line = clocked(lambda: program.check(600))
        assert line.startswith("None of %d " % len(links)), line
        after = peak(program.process)
        program.close()
        scratch.remove()
        return seconds, before, after

    def walk(self):
        pages = 2000
        server = Nginx({"%d.htm" % n: page("0.htm", *("%d.htm" % m for m in (2 * n + 1, 2 * n + 2) if m < pages)) for n in range(pages)})
        folder = Scratch()
        tool = str(self.build / "bin" / "quorvantis-check")
        pairs = []
        for _ in range(ROUNDS):
            ours, _ = clocked(lambda: subprocess.run([tool, "--site", server.url("0.htm")], stdout=subprocess.DEVNULL, check=True))
            bare, _ = clocked(lambda: (self.tool("bench_head_loop", server.url(), pages, folder.root),
                                       self.tool("bench_head_loop", server.url(), pages)))
            pairs.append((ours, bare))
        tell("Walk of 2,000 pages, each fetched and then checked", "%.2f s" % statistics.median(p[0] for p in pairs),
             "bare libcurl: GET, four files a page, then HEAD: %.2f s" % statistics.median(p[1] for p in pairs),
             "%.2f times that" % statistics.median(ours / bare for ours, bare in pairs))
        local, _ = clocked(lambda: subprocess.run([tool, "--site", "--local", str(server.root / "site"), "http://127.0.0.1:9/0.htm"],
                                                  stdout=subprocess.DEVNULL, check=True))
        tell("The same from a folder", "%.2f s" % local)
        server.stop()
        folder.remove()

    def start_up(self):
        for name in ("quorvantis-headless", "quorvantis"):
            self.use(name)
            display()
            full, empty = Scratch(), Scratch()
            for number in range(1, 501):
                full.document("http://127.0.0.1:9/doc%d.htm" % number, ["http://127.0.0.1:9/%d-%d.htm" % (number, n) for n in range(50)], number)
            times = []
            for _ in range(ROUNDS * 2):
                pair = []
                for scratch in (full, empty):
                    seconds, program = clocked(lambda: Program(scratch))
                    pair.append((seconds, peak(program.process)))
                    program.kill()
                    program.close()
                times.append(pair)
            memory = max(pair[0][1] for pair in times)
            tell("Start of `%s` with 500 documents" % name, "%.0f ms" % (1000 * statistics.median(pair[0][0] for pair in times)),
                 "with an empty session: %.0f ms" % (1000 * statistics.median(pair[1][0] for pair in times)),
                 "%.2f times that" % statistics.median(pair[0][0] / pair[1][0] for pair in times), "%.0f MB" % memory)
            full.remove()
            empty.remove()

    def reports(self):
        output = self.tool("bench_reports")
        for name, size, ours, bare, ratio, memory in re.findall(
                r"^(\w+) +([\d.]+) MB +report +([\d.]+) ms +the same bytes +([\d.]+) ms +ratio ([\d.]+) +memory (\d+) KB", output, re.M):
            tell("Report of 100,000 links, %s, %s MB" % (name, size), "%s ms" % ours, "writing the same bytes: %s ms" % bare,
                 "%s times that" % ratio, "%s KB more" % memory)

    def windows(self):
        if not (self.build / "bench" / "bench_windows").exists():
            return
        for line in self.tool("bench_windows").splitlines():
            what, each = re.match(r"(.+?) +[\d.]+ s +([\d.]+) us each", line).groups()
            tell("Desktop list of 100,000 rows, " + what, each + " µs each")


def main():
    bench = Bench(Path(sys.argv[1]).resolve())
    bench.use("quorvantis-headless")
    print("| What | Figure | Limit | Ratio | Peak memory |\n| --- | --- | --- | --- | --- |", flush=True)
    for part in sys.argv[2:] or PARTS:
        getattr(bench, part)()


if __name__ == "__main__":
    main()
