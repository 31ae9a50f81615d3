#!/usr/bin/env python3
"""Adds up what gcov knows of the coverage build.

usage: coverage.py PROJECT [FOLDER]      a table of the folders of src/, or the lines of one that nothing reached
"""
import gzip
import json
import subprocess
import sys
import tempfile
from collections import defaultdict
from pathlib import Path


def lines_of(root):
    """For each source file: line -> how often it was reached, over all programs that contain it."""
    build = root / "build" / "coverage"
    counts = defaultdict(lambda: defaultdict(int))
    notes = [str(path) for path in build.rglob("*.gcno") if (build / "src") in path.parents]
    with tempfile.TemporaryDirectory() as folder:
        for start in range(0, len(notes), 50):
            subprocess.run(["gcov", "--json-format", *notes[start:start + 50]], cwd=folder, check=True,
                           stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
            for path in Path(folder).glob("*.gcov.json.gz"):
                for file in json.loads(gzip.open(path).read())["files"]:
                    name = Path(file["file"])
                    name = name if name.is_absolute() else build / name
                    if (root / "src") in name.parents:
                        for line in file["lines"]:
                            counts[name.relative_to(root / "src")][line["line_number"]] += line["count"]
                path.unlink()
    return counts


def main():
    root = Path(sys.argv[1]).resolve()
    counts = lines_of(root)
    if len(sys.argv) > 2:
        for name in sorted(name for name in counts if str(name).startswith(sys.argv[2] + "/")):
            text = (root / "src" / name).read_text().splitlines()
            for number in sorted(line for line, count in counts[name].items() if count == 0):
                print("%s:%d: %s" % (name, number, text[number - 1].strip()))
        return
    folders = defaultdict(lambda: [0, 0])
    for name, lines in counts.items():
        for total in (folders[str(name.parent)], folders["all"]):
            total[0] += sum(1 for count in lines.values() if count > 0)
            total[1] += len(lines)
    print("| Folder | Lines | Reached |\n| --- | ---: | ---: |")
    for folder in sorted(folders, key=lambda folder: (folder == "all", folder)):
        reached, lines = folders[folder]
        print("| `%s` | %d | %.1f %% |" % (folder, lines, 100 * reached / lines))


if __name__ == "__main__":
    main()
