#!/usr/bin/env python3
"""Runs the end-to-end tests against built programs. Prints each failing test, and last "N passed, N failed".

usage: run.py --bin FOLDER [--program NAME] [--jobs N] [PATTERN ...]
"""
import argparse
import concurrent.futures
import os
import sys
import unittest
from pathlib import Path

HERE = Path(__file__).resolve().parent
sys.path.insert(0, str(HERE))


def tests_in(suite):
    for item in suite:
        if isinstance(item, unittest.TestSuite):
            yield from tests_in(item)
        else:
            yield item


def run_one(test):
    result = unittest.TestResult()
    test.run(result)
    faults = [trace for _, trace in result.failures + result.errors]
    return test.id(), faults, bool(result.skipped)


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--bin", required=True, help="the folder of the programs")
    parser.add_argument("--program", default="quorvantis-headless")
    parser.add_argument("--jobs", type=int, default=4)
    parser.add_argument("patterns", nargs="*")
    options = parser.parse_args()
    os.environ["QUORVANTIS_PROGRAM"] = str(Path(options.bin).resolve() / options.program)
    tests = []
    for path in sorted(HERE.glob("test_*.py")):
        tests += tests_in(unittest.defaultTestLoader.loadTestsFromName(path.stem))
    if options.patterns:
        tests = [test for test in tests if any(pattern in test.id() for pattern in options.patterns)]
    passed = failed = skipped = 0
    with concurrent.futures.ThreadPoolExecutor(options.jobs) as pool:
        for name, faults, skip in pool.map(run_one, tests):
            passed += not faults and not skip
            failed += bool(faults)
            skipped += skip
            if faults:
                print("FAILED %s\n%s" % (name, faults[0]), flush=True)
    print("%d passed, %d failed%s" % (passed, failed, ", %d skipped" % skipped if skipped else ""))
    return 0 if passed and not failed else 1


if __name__ == "__main__":
    sys.exit(main())
