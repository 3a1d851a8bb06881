#!/usr/bin/env python3
"""Judges what llvm-cov measured: every line and at least 95 % of the branches of our own code.

usage: report.py SOURCE_DIR COVERAGE.lcov COVERAGE.json EXCEPTIONS

A line that no test can reach is named in EXCEPTIONS, with the reason; its branches are then not
counted either. An exception that is not needed any more fails the run, so the list stays true.
A branch of a template counts as taken when any instantiation takes it.
"""

import collections
import json
import os.path
import pathlib
import sys

LEAST_BRANCHES = 95.0

# What is no code of the product.
NOT_MEASURED = {"benchmarks", "build", "examples", "fuzz", "tests"}


def measured_file(name, source_dir):
    """The file's path from the top of the sources; None when its coverage does not count."""
    file = pathlib.Path(os.path.normpath(name))
    if source_dir not in file.parents:
        return None
    file = file.relative_to(source_dir)
    return None if file.parts[0] in NOT_MEASURED else str(file)


def read_exceptions(path):
    """The excused lines as (file, source text). A reason stands above the lines it is for."""
    excused = set()
    reason = False
    for number, line in enumerate(path.read_text().splitlines(), 1):
        if line.startswith("#"):
            reason = True
        elif not line.strip():
            reason = False
        else:
            if not reason:
                sys.exit(f"{path}:{number}: no reason stands above this exception")
            file, _, text = line.partition(": ")
            excused.add((file, text.strip()))
    return excused


def read_lines(path, source_dir):
    """How often each line ran: {file: {line: count}}."""
    lines = collections.defaultdict(dict)
    file = None
    for entry in path.read_text().splitlines():
        key, _, value = entry.partition(":")
        if key == "SF":
            file = measured_file(value, source_dir)
        elif key == "DA" and file:
            line, count = value.split(",")[:2]
            lines[file][int(line)] = int(count)
    return lines


def read_branches(path, source_dir):
    """How often each side of each condition was taken: {file: {position: [true, false]}}."""
    branches = collections.defaultdict(dict)
    for entry in json.loads(path.read_text())["data"][0]["files"]:
        file = measured_file(entry["filename"], source_dir)
        for branch in entry["branches"] if file else []:
            sides = branches[file].setdefault(tuple(branch[:4]), [0, 0])
            sides[0] += branch[4]
            sides[1] += branch[5]
    return branches


def percent(part, whole):
    return 100.0 * part / whole if whole else 100.0


def main():
    source_dir, lcov, branches_json, exceptions = map(pathlib.Path, sys.argv[1:])
    excused = read_exceptions(exceptions)
    branches = read_branches(branches_json, source_dir)
    unused = set(excused)
    totals = collections.Counter()
    missed = []
    for file, counts in sorted(read_lines(lcov, source_dir).items()):
        source = (source_dir / file).read_text().splitlines()
        text_of = lambda line: source[line - 1].strip()
        for line, count in sorted(counts.items()):
            if (file, text_of(line)) in excused:
                if count == 0:
                    unused.discard((file, text_of(line)))
                continue
            totals["lines"] += 1
            totals["lines run"] += count > 0
            if count == 0:
                missed.append(f"{file}:{line}: never run: {text_of(line)}")
        for (line, column, *_), sides in sorted(branches[file].items()):
            if (file, text_of(line)) in excused:
                if 0 in sides:
                    unused.discard((file, text_of(line)))
                continue
            totals["branches"] += 2
            totals["branches taken"] += sum(side > 0 for side in sides)
            for side, name in zip(sides, ("true", "false")):
                if side == 0:
                    missed.append(f"{file}:{line}:{column}: never {name}: {text_of(line)}")

    line_percent = percent(totals["lines run"], totals["lines"])
    branch_percent = percent(totals["branches taken"], totals["branches"])
    print("\n".join(missed))
    for file, text in sorted(unused):
        print(f"an exception that is not needed: {file}: {text}")
    print(f"lines    {totals['lines run']} of {totals['lines']}, {line_percent:.2f} %")
    print(f"branches {totals['branches taken']} of {totals['branches']}, {branch_percent:.2f} %")
    print(f"excused  {len(excused)} lines, in {exceptions.relative_to(source_dir)}")
    complete = totals["lines"] > 0 and totals["lines run"] == totals["lines"]
    sys.exit(0 if complete and branch_percent >= LEAST_BRANCHES and not unused else 1)


if __name__ == "__main__":
    main()
