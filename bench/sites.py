#!/usr/bin/env python3
"""What a site's walk and check cost as the site grows: 500 to 4,000 pages, from an nginx and from a folder, as a tree and as one
long chain (each page found by the page before it).

usage: sites.py BUILD-FOLDER
"""
import subprocess
import sys
import time
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent.parent / "tests" / "endtoend"))
from servers import Nginx, page  # noqa: E402


def tree(count):
    return {"p%d.html" % n: page("p0.html", *("p%d.html" % m for m in (2 * n + 1, 2 * n + 2) if m < count)) for n in range(count)}


def chain(count):
    return {"p%d.html" % n: page("p0.html", "p%d.html" % min(n + 1, count - 1)) for n in range(count)}


def seconds(tool, *arguments):
    start = time.monotonic()
    done = subprocess.run([tool, "--site", *arguments], capture_output=True, text=True, check=True)
    assert done.stdout.startswith("None of "), done.stdout[-200:]
    return time.monotonic() - start


tool = str(Path(sys.argv[1]).resolve() / "bin" / "quorvantis-check")
for shape in (tree, chain):
    for pages in (500, 1000, 2000, 4000):
        server = Nginx(shape(pages))
        web = seconds(tool, server.url("p0.html"))
        folder = seconds(tool, "--local", str(server.root / "site"), "http://127.0.0.1:9/p0.html")
        server.stop()
        print("%-5s %5d pages   web %6.2f s %6.2f ms a page   folder %6.2f s %6.2f ms a page" % (
            shape.__name__, pages, web, web * 1000 / pages, folder, folder * 1000 / pages), flush=True)
