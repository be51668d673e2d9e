#!/usr/bin/env python3
"""Holds the branches that no test takes against those that are named with a reason.

tools/untaken_branches.py COUNTED: COUNTED is what gcovr has written with --json. Prints the lines
with a branch that was not taken and that tools/untaken_branches.txt does not name, and the names
there that no such line has. A line is named by its source and its text, once for each time that it
stands there. --list prints all of them, to be named. The status is 0 only where nothing is printed.
"""

import argparse
import collections
import json
import pathlib
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent


def untaken(counted, root):
    """How many lines of a source, by their text, have a branch that was not taken."""
    lines = collections.Counter()
    for source in json.loads(pathlib.Path(counted).read_text())["files"]:
        path = source.get("file") or source["filename"]
        texts = (root / path).read_text().splitlines()
        for line in source["lines"]:
            if line.get("gcovr/noncode") or line.get("gcovr/excluded"):
                continue
            branches = [branch for branch in line["branches"] if not branch["throw"]]
            if any(branch["count"] == 0 for branch in branches):
                lines[f"{path}: {texts[line['line_number'] - 1].strip()}"] += 1
    return lines


def named(path):
    """The same, as the list names them; what begins with "#" is the reason for those below it."""
    lines = collections.Counter()
    for line in pathlib.Path(path).read_text().splitlines():
        if line.strip() and not line.startswith("#"):
            lines[line.strip()] += 1
    return lines


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("counted")
    parser.add_argument("--root", type=pathlib.Path, default=ROOT, help="the tree (this one)")
    parser.add_argument("--list", action="store_true", help="print all that were not taken")
    options = parser.parse_args()
    found = untaken(options.counted, options.root)
    if options.list:
        print("\n".join(sorted(found.elements())))
        return 0
    known = named(options.root / "tools" / "untaken_branches.txt")
    for text in sorted((found - known).elements()):
        print(f"not taken, not named: {text}")
    for text in sorted((known - found).elements()):
        print(f"named, and taken or gone: {text}")
    print(f"{sum(found.values())} lines have a branch that no test takes, "
          f"{sum((found & known).values())} of them are named")
    return 1 if found != known else 0


sys.exit(main())
