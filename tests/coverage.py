#!/usr/bin/env python3
"""Sums up what the tests reached of some folders: llvm-cov export ... | coverage.py FOLDER...

Prints lines, functions and decisions of each folder and of its parts, then every decision that was not reached, with
its place, its condition and the outcome that never came. Instances of a template count as one."""

import collections
import json
import os
import sys

ROOT = os.path.dirname(os.path.dirname(os.path.realpath(__file__)))


def place(name):
    """Compilers may name a source by its way from the build folder."""
    return os.path.relpath(os.path.normpath(name), ROOT)


def decisions(branches, source):
    """(begin, end) of each condition -> how often it was true and false. What cannot be otherwise is none."""
    found = collections.defaultdict(lambda: [0, 0])
    for line, column, last_line, last_column, true, false, *_ in branches:
        where = (line, column), (last_line, last_column)
        if text(source, *where) not in ("true", "false"):
            found[where][0] += true
            found[where][1] += false
    return found


def text(source, begin, end):
    lines = source[begin[0] - 1:end[0]]
    lines[-1] = lines[-1][:end[1] - 1]
    lines[0] = lines[0][begin[1] - 1:]
    return " ".join(" ".join(lines).split())


def read(path):
    with open(os.path.join(ROOT, path), encoding="utf-8") as file:
        return file.read().split("\n")


def missing(path, found, source):
    for (begin, end), counts in sorted(found.items()):
        for outcome, count in zip(("true", "false"), counts):
            if count == 0:
                yield f"{path}:{begin[0]}: never {outcome}: {text(source, begin, end)}"


def share(reached, all_of_them):
    return f"{100 * reached / all_of_them:6.1f} % of {all_of_them:5}" if all_of_them else "     -" + 9 * " "


def row(name, sums):
    return f"{name:40} " + "  ".join(share(*sums[kind]) for kind in ("lines", "functions", "decisions"))


def report(folder, files):
    parts = collections.defaultdict(lambda: collections.defaultdict(lambda: [0, 0]))
    unreached = []
    for path, file in sorted(files.items()):
        source = read(path)
        found = decisions(file["branches"], source)
        outcomes = [count for counts in found.values() for count in counts]
        summary = file["summary"]
        for part in (folder, os.path.dirname(path)):
            sums = parts[part]
            for kind in ("lines", "functions"):
                sums[kind][0] += summary[kind]["covered"]
                sums[kind][1] += summary[kind]["count"]
            sums["decisions"][0] += sum(count > 0 for count in outcomes)
            sums["decisions"][1] += len(outcomes)
        unreached += missing(path, found, source)
    print(f"{'':40} {'lines':18}  {'functions':18}  decisions")
    for part in sorted(parts):
        print(row(part, parts[part]))
    print(*unreached, "", sep="\n")


def main():
    files = {place(file["filename"]): file for file in json.load(sys.stdin)["data"][0]["files"]}
    for folder in sys.argv[1:]:
        report(folder, {path: file for path, file in files.items() if path.startswith(folder + os.sep)})


main()
