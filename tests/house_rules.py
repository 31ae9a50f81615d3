#!/usr/bin/env python3
"""Holds the source tree against the rules of the house: who may include what, and how long a file may be.

usage: house_rules.py PROJECT
"""
import re
import sys
from pathlib import Path

# A folder of src/ and the folders whose headers it may include besides its own.
BASE = {"text", "controls", "platform"}
MAY_INCLUDE = {
    "text": set(),
    "controls": set(),
    "platform": {"text"},
    "session": BASE,
    "extract": BASE | {"session"},
    "sitedb": BASE | {"session", "extract"},
    "mail": BASE | {"session"},
    "mainwindow": BASE | {"session", "extract", "sitedb"},
    "retrieve": BASE | {"session", "extract", "sitedb", "mainwindow"},
    "check": BASE | {"session", "extract", "sitedb", "mainwindow", "retrieve"},
}
MAY_INCLUDE["reports"] = MAY_INCLUDE["bookmarks"] = MAY_INCLUDE["retrieve"]
MAY_INCLUDE["localmode"] = MAY_INCLUDE["check"]
MAY_INCLUDE["enterprise"] = MAY_INCLUDE["reports"] | {"reports"}
SUBSYSTEMS = set(MAY_INCLUDE)
MAY_INCLUDE["program"] = SUBSYSTEMS | {"platform/linux"}
MAY_INCLUDE["automation"] = BASE | {"program"}
MAY_INCLUDE["desktop"] = BASE | {"program", "automation", "session", "mainwindow", "sitedb", "check", "mail", "reports", "enterprise"}
MAY_INCLUDE["apps"] = SUBSYSTEMS | {"program", "automation", "desktop", "platform/linux"}

QT = re.compile(r"^Q[A-Z]|^Qt[A-Z]")
OUTSIDE_WORLD = re.compile(
    r"^(curl|gmime|glib|sys|netinet|arpa|X11)/|^(glib|unistd|fcntl|poll|netdb|dirent|pthread|signal|spawn|pwd|termios)\.h$")
INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]', re.M)
LONGEST_FILE = 450


def folder_of(path, src):
    parts = path.relative_to(src).parts
    return "platform/linux" if parts[:2] == ("platform", "linux") else parts[0]


def faults_of(path, src):
    folder = folder_of(path, src)
    own = "platform" if folder == "platform/linux" else folder
    text = path.read_text(encoding="utf-8")
    if text.count("\n") > LONGEST_FILE:
        yield "%s has more than %d lines" % (path.name, LONGEST_FILE)
    for kind, name in INCLUDE.findall(text):
        if QT.search(name) and own != "desktop" and not path.name.startswith("quorvantis_desktop"):
            yield "includes Qt: " + name
        if OUTSIDE_WORLD.search(name) and own != "platform":
            yield "includes the outside world: " + name
        if kind == '"':
            target = "platform/linux" if name.startswith("platform/linux/") else name.split("/")[0]
            allowed = MAY_INCLUDE[own] | {own} | ({"platform/linux", "text", "controls"} if folder == "platform/linux" else set())
            if target not in allowed:
                yield "may not include " + name


def main():
    src = Path(sys.argv[1]) / "src"
    files = sorted(p for p in src.rglob("*") if p.suffix in (".h", ".cpp"))
    failed = 0
    for path in files:
        faults = list(faults_of(path, src))
        failed += bool(faults)
        for fault in faults:
            print("%s: %s" % (path.relative_to(src), fault))
    print("%d passed, %d failed" % (len(files) - failed, failed))
    return 1 if failed or not files else 0


if __name__ == "__main__":
    sys.exit(main())
