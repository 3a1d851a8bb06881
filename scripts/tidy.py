#!/usr/bin/env python3
"""Runs the linter over source files; scripts/lint calls it.

usage: tidy.py BUILD FILE…      BUILD has compile_commands.json; FILEs are below this folder

Most of the linter's time would go into the headers that files include, so files of one folder and
one target are read together, as one text, where their names do not clash.
"""
import collections
import concurrent.futures
import json
import os
import pathlib
import re
import shlex
import subprocess
import sys

AT_MOST = 24  # files in one text, so that all processors have work to the end

# The compile commands are those of g++, which has warnings of its own. The macros of the test
# framework take fewer arguments than the standard wants. The analyzer follows a function for a third
# of the steps that it would take by itself, which take less than half of its time.
TIDY = ["clang-tidy", "--quiet"] + ["--extra-arg=" + option for option in (
    "-Wno-unknown-warning-option", "-Wno-gnu-zero-variadic-macro-arguments",
    "-Xclang", "-analyzer-config", "-Xclang", "max-nodes=75000")]

TOP = pathlib.Path.cwd()
Command = collections.namedtuple("Command", "folder target arguments")


def read_commands(build):
    """The compile command of each file, without the file and what is written."""
    commands = {}
    for entry in json.loads((build / "compile_commands.json").read_text()):
        file = os.path.relpath(entry["file"], TOP)
        command, output = entry["command"].split(" -o ", 1)
        target = output.split(".dir/")[0]
        # clang does not know this option.
        arguments = shlex.split(command.replace(" -fno-gnu-unique", ""))[1:]
        commands.setdefault(file, Command(entry["directory"], target, arguments))
    return commands


def command_of(file, commands):
    """A file that is part of another build only takes the command of a neighbour."""
    if file in commands:
        return commands[file]
    folder = os.path.dirname(file) + "/"
    near = next(commands[other] for other in sorted(commands) if other.startswith(folder))
    return near._replace(target=near.target + "-other")


class Text:
    """Files that are read as one; what is found is reported at its place in the file."""

    def __init__(self, files, command):
        self.files = files
        self.command = command

    def write(self, path):
        path.write_text("".join(f'#line 1 "{TOP / file}"\n{(TOP / file).read_text()}\n'
                                for file in self.files))

    def arguments(self, path):
        folder = TOP / os.path.dirname(self.files[0])
        return self.command.arguments + ["-iquote", str(folder), "-c", str(path)]

    def clashing(self, path):
        """The files that do not compile when they stand with the others."""
        self.write(path)
        run = subprocess.run(["clang++", "-fsyntax-only", "-w", "-ferror-limit=0", *self.arguments(path)],
                             cwd=self.command.folder, capture_output=True, text=True)
        places = re.findall(r"(?:^|from )(\S+?):\d+(?::\d+: (?:fatal )?error|[,:]$)", run.stderr, re.MULTILINE)
        return {os.path.relpath(place, TOP) for place in places} & set(self.files)

    def findings(self, folder):
        folder.mkdir(parents=True, exist_ok=True)
        path = folder / "all.cc"
        self.write(path)
        # The list of checks is found from the place of the text.
        config = next(up / ".clang-tidy" for up in (TOP / self.files[0]).parents if (up / ".clang-tidy").exists())
        if config.parent != TOP:
            (folder / ".clang-tidy").write_bytes(config.read_bytes())
        (folder / "compile_commands.json").write_text(json.dumps(
            [{"directory": self.command.folder, "file": str(path),
              "arguments": ["clang++", *self.arguments(path)]}]))
        # One file may declare what the next one defines.
        found = tidy(["-p", str(folder), "--checks=-readability-redundant-declaration", str(path)])
        return re.sub(re.escape(str(path)) + r":(\d+)", lambda place: self.place(int(place[1])), found)

    def place(self, line):
        """Where a line of the text stands; the linter does not care for #line."""
        for file in self.files:
            lines = (TOP / file).read_text().count("\n") + 2
            if line <= lines:
                return f"{file}:{line - 1}"
            line -= lines
        return f"{file}:0"


def tidy(arguments):
    run = subprocess.run(TIDY + arguments, capture_output=True, text=True)
    if run.returncode == 0:
        return ""
    return run.stdout or run.stderr


def texts_of(files, command, scratch):
    """Splits files into as few texts as their names allow."""
    scratch.parent.mkdir(parents=True, exist_ok=True)
    while files:
        text, rest = Text(files[:AT_MOST], command), files[AT_MOST:]
        while len(text.files) > 1:
            clashing = text.clashing(scratch) - {text.files[0]}
            if not clashing:
                break
            rest = [file for file in text.files if file in clashing] + rest
            text.files = [file for file in text.files if file not in clashing]
        yield text
        files = rest


def main():
    build = pathlib.Path(sys.argv[1]).resolve()
    units = build.parent / "units"
    commands = read_commands(build)
    groups = collections.defaultdict(list)
    for file in sys.argv[2:]:
        command = command_of(file, commands)
        groups[os.path.dirname(file), command.target].append((file, command))

    def check_group(number, group):
        files, command = [file for file, _ in group], group[0][1]
        folder = units / str(number)
        texts = texts_of(files, command, folder / "scratch.cc")
        return "".join(text.findings(folder / str(part)) for part, text in enumerate(texts))

    failed = False
    # The largest groups first, so that the last one to end is a small one.
    ordered = sorted(groups.values(), key=len, reverse=True)
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        runs = [pool.submit(check_group, *numbered) for numbered in enumerate(ordered)]
        for run in concurrent.futures.as_completed(runs):
            found = run.result()
            print(found, end="", flush=True)
            failed = failed or found != ""
    sys.exit(failed)


main()
