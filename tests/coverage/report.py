#!/usr/bin/env python3
"""Judges what llvm-cov measured: every line and at least 95 % of the branches of our own code.

usage: report.py SOURCE_DIR COVERAGE.lcov COVERAGE.json

A line that no test can reach ends with the mark "// coverage: REASON"; its branches are then not
counted either. When the marked line opens a block, the whole block is excused. A mark that is not
needed any more fails the run. A branch of a template counts as taken when any instantiation takes it.
"""

import collections
import json
import os.path
import pathlib
import re
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


MARK = re.compile(r"^(.*?)\s*// coverage: (\S.*)$")


def read_marks(source):
    """The excused lines: {line: line of its mark}. A block ends where its indentation does."""
    marks = {}
    for number, text in enumerate(source, 1):
        match = MARK.match(text)
        if not match:
            continue
        marks[number] = number
        if match[1].endswith("{"):
            first = source[number] if number < len(source) else ""
            indent = len(first) - len(first.lstrip())
            for inner in range(number + 1, len(source) + 1):
                line = source[inner - 1]
                marks[inner] = number
                if line.strip() and len(line) - len(line.lstrip()) < indent:
                    break
    return marks


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
    source_dir, lcov, branches_json = map(pathlib.Path, sys.argv[1:])
    branches = read_branches(branches_json, source_dir)
    unused = set()
    excused = 0
    totals = collections.Counter()
    missed = []
    for file, counts in sorted(read_lines(lcov, source_dir).items()):
        source = (source_dir / file).read_text().splitlines()
        text_of = lambda line: source[line - 1].strip()
        marks = read_marks(source)
        excused += len(marks)
        needed = set()
        for line, count in sorted(counts.items()):
            if line in marks:
                if count == 0:
                    needed.add(marks[line])
                continue
            totals["lines"] += 1
            totals["lines run"] += count > 0
            if count == 0:
                missed.append(f"{file}:{line}: never run: {text_of(line)}")
        for (line, column, *_), sides in sorted(branches[file].items()):
            if line in marks:
                if 0 in sides:
                    needed.add(marks[line])
                continue
            totals["branches"] += 2
            totals["branches taken"] += sum(side > 0 for side in sides)
            for side, name in zip(sides, ("true", "false")):
                if side == 0:
                    missed.append(f"{file}:{line}:{column}: never {name}: {text_of(line)}")
        unused |= {(file, mark, text_of(mark)) for mark in set(marks.values()) - needed}

    line_percent = percent(totals["lines run"], totals["lines"])
    branch_percent = percent(totals["branches taken"], totals["branches"])
    print("\n".join(missed))
    for file, line, text in sorted(unused):
        print(f"{file}:{line}: the mark is not needed: {text}")
    print(f"lines    {totals['lines run']} of {totals['lines']}, {line_percent:.2f} %")
    print(f"branches {totals['branches taken']} of {totals['branches']}, {branch_percent:.2f} %")
    print(f"excused  {excused} lines")
    complete = totals["lines"] > 0 and totals["lines run"] == totals["lines"]
    sys.exit(0 if complete and branch_percent >= LEAST_BRANCHES and not unused else 1)


if __name__ == "__main__":
    main()
