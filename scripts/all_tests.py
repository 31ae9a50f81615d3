#!/usr/bin/env python3
"""Runs the unit tests of the debug build, the house rules, each fuzz target for a few seconds, and the end-to-end
tests on the release build and on the debug build.
The last line is the sum: "N passed, N failed".

usage: all_tests.py PROJECT [PATTERN]
"""
import os
import re
import subprocess
import sys
import tempfile
from pathlib import Path


FUZZ_SECONDS = 3


def figures(output):
    """Passed and failed of the last closing line in a text, whichever runner wrote it."""
    found = re.findall(r"^(\d+) passed, (\d+) failed", output, re.M)
    if found:
        return int(found[-1][0]), int(found[-1][1])
    found = re.findall(r"tests passed, (\d+) tests failed out of (\d+)", output)
    if found:
        failed, total = int(found[-1][0]), int(found[-1][1])
        return total - failed, failed
    return 0, 1


def run(name, command, **more):
    print("== " + name, flush=True)
    process = subprocess.Popen(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, errors="replace", **more)
    output = []
    for line in process.stdout:
        output.append(line)
        print(line, end="", flush=True)
    status = process.wait()
    passed, failed = figures("".join(output))
    if status != 0 and failed == 0:
        failed = 1
    return passed, failed


def fuzz(root, environment):
    """Each fuzz target over its corpus and a few seconds further, from a fixed seed; what it finds is told."""
    passed = failed = 0
    for folder in sorted((root / "fuzz" / "corpus").iterdir()):
        with tempfile.TemporaryDirectory() as grown:
            command = [str(root / "build" / "fuzz" / "fuzz" / ("fuzz_" + folder.name)), "-max_total_time=%d" % FUZZ_SECONDS, "-seed=1",
                       "-timeout=20", "-rss_limit_mb=4096", "-artifact_prefix=%s/" % grown, grown, str(folder)]
            done = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, errors="replace", env=environment)
        print("fuzz_%s: %s" % (folder.name, "nothing found" if done.returncode == 0 else "FAILED\n" + done.stdout[-4000:]), flush=True)
        passed, failed = (passed + 1, failed) if done.returncode == 0 else (passed, failed + 1)
    return passed, failed


def main():
    root = Path(sys.argv[1])
    pattern = sys.argv[2:]
    debug = root / "build" / "debug"
    environment = dict(os.environ, ASAN_OPTIONS="detect_leaks=1", UBSAN_OPTIONS="print_stacktrace=1")
    end_to_end = [sys.executable, str(root / "tests" / "endtoend" / "run.py")]
    results = []
    if not pattern:
        results.append(run("house rules", [sys.executable, str(root / "tests" / "house_rules.py"), str(root)]))
    if not pattern or pattern[0] == "fuzz":
        print("== fuzz targets", flush=True)
        results.append(fuzz(root, environment))
    ctest = ["ctest", "--test-dir", str(debug), "--output-on-failure", "-j", "2", "--progress"]
    results.append(run("unit tests", ctest + (["-R", pattern[0]] if pattern else []), env=environment))
    for build in ("release", "debug"):
        folder = root / "build" / build / "bin"
        for program in ("quorvantis-headless", "quorvantis"):
            command = end_to_end + ["--bin", str(folder), "--program", program] + pattern
            results.append(run("end to end, %s, %s" % (build, program), command, env=environment))
    passed, failed = (sum(column) for column in zip(*results))
    print("%d passed, %d failed" % (passed, failed))
    return 1 if failed or not passed else 0


if __name__ == "__main__":
    sys.exit(main())
