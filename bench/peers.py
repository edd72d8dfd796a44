#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Measures jobs of Korvane beside other programs that do the same, on made-up data, and prints tables.

Times are medians over runs in turns, after one that fills the caches. Programs that do not find the same are no
peers: then this ends with 1. To be run by scripts/bench --peers, which builds what is needed and gives a display."""

import argparse
import json
import os
import resource
import shutil
import signal
import subprocess
import sys
import tempfile
import time
from pathlib import Path
from statistics import median
from typing import NamedTuple

JOBS = ["find", "diff", "open"]
SEARCHES = ("gun001", "gun00")  # hundreds of lines, thousands; more than 5000 Korvane does not list
CHANGED_LINES = 200  # every so manieth line of the changed files, which are every second one
EDITED, EMPTIED = "Object/FactionUnit.ini", "Locomotor.ini"  # below Data/INI: the largest data file, and another one
REST = 1.0  # seconds in which a program at rest takes less than ...
RESTING = 20  # ... so many milliseconds of the processor's time: a cursor blinks
HANGS = 60  # seconds
TICK = 1000 / os.sysconf("SC_CLK_TCK")  # milliseconds
USER_FOLDERS = ("HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "XDG_RUNTIME_DIR")
CPU_CLOCK = 2  # the kind of clock that the system has for each process, with its number


class Cost(NamedTuple):  # milliseconds
    time: float
    processor: float


def medians(costs):
    return Cost(*(median(column) for column in zip(*costs)))


def processor_of_children():
    used = resource.getrusage(resource.RUSAGE_CHILDREN)
    return (used.ru_utime + used.ru_stime) * 1000


def run(command, output, ends=(0,)):
    """Runs it to its end, with what it prints in a file: programs do less for one that throws it away."""
    before, start = processor_of_children(), time.perf_counter()
    with output.open("wb") as file:
        code = subprocess.run(command, stdout=file, check=False).returncode
    cost = Cost((time.perf_counter() - start) * 1000, processor_of_children() - before)
    if code not in ends:
        sys.exit(f"{command[0]} ends with {code}")
    return cost


def rounds_of(runs, jobs):
    """The jobs are functions that give a Cost; the costs of each."""
    return list(zip(*[[job() for job in jobs] for _ in range(runs + 1)][1:]))


def in_turns(runs, jobs):
    return [medians(costs) for costs in rounds_of(runs, jobs)]


def print_table(title, columns, rows):
    print(f"\n{title}\n\n| {' | '.join(columns)} |\n|---|{'--:|' * (len(columns) - 1)}")
    for row in rows:
        print(f"| {' | '.join(f'{cell:.1f}' if isinstance(cell, float) else str(cell) for cell in row)} |")


def output_of(command, check=True):
    return subprocess.run(command, capture_output=True, text=True, check=check).stdout


def version(package):
    return output_of(["dpkg-query", "--show", "--showformat=${Version}", package])


def agree(counts):
    if len(set(counts.values())) != 1 or 0 in counts.values():
        sys.exit(f"They do not find the same: {counts}")


class Bench:
    def __init__(self, programs, home, runs):
        self.programs, self.home, self.runs = programs, home, runs
        self.output = home / "output"
        self.modification = home / "modification" / "game"

    def generate(self):
        subprocess.run([self.programs / "korvane-bench", "--part", "folders", "--home", self.home], check=True)

    # Find in files

    def korvane_finds(self, text):
        where = ["--home", self.modification.parent, "--text", text, "--runs", str(self.runs + 1)]
        told = output_of([self.programs / "korvane-bench", "--part", "find", *where])
        rows = [line.split() for line in told.splitlines()][1:]
        return int(rows[0][0]), medians([Cost(float(row[1]), float(row[2])) for row in rows])

    def ripgrep_finds(self, text, threads, folder):
        options = ["--no-config", "--no-ignore", "--hidden", "--glob=*.ini", "--fixed-strings", "--ignore-case"]
        output = ["--text", "--encoding=none", "--crlf", "--line-number", "--column", "--no-heading", "--color=never"]
        command = ["rg", *options, *output, f"--threads={threads}", "-e", text, folder]
        return run(command, self.output, (0, 1))

    def find(self):
        nothing = self.home / "nothing"
        nothing.mkdir(exist_ok=True)
        rows = []
        for text in SEARCHES:
            lines, korvane = self.korvane_finds(text)
            searches = [(text, 1, self.modification), (text, 2, self.modification), (text, 1, nothing)]
            jobs = [lambda search=search: self.ripgrep_finds(*search) for search in searches]
            one, two, start = in_turns(self.runs, jobs)
            self.ripgrep_finds(text, 1, self.modification)
            agree({"Korvane": lines, "ripgrep": len(self.output.read_bytes().splitlines())})
            rows += [("Korvane, one thread, in the running program", text, lines, *korvane)]
            rows += [("ripgrep, one thread", text, lines, *one), ("ripgrep, two threads", text, lines, *two)]
        rows.append(("ripgrep, in an empty folder", text, 0, *start))
        title = f"Find in files: a modification of 22 MB; ripgrep {version('ripgrep')}"
        print_table(title, ("program", "text", "lines", "ms", "processor ms"), rows)

    # Differences of folders

    def change(self, original):
        """A copy in which lines of every second file have a further value."""
        changed = self.home / "changed"
        shutil.copytree(original, changed)
        for file in sorted(changed.rglob("*.ini"))[::2]:
            lines = file.read_bytes().split(b"\r\n")
            for at in range(0, len(lines), CHANGED_LINES):
                key = next((i for i in range(at, min(at + CHANGED_LINES, len(lines))) if b" = " in lines[i]), None)
                if key is not None:
                    lines[key] += b" 1"
            file.write_bytes(b"\r\n".join(lines))
        return changed

    def compared_files(self, original, changed):
        """How many files differ, as each of the two sees it."""
        run([self.programs / "korvane-diff", "--text", "--format=json", original, changed], self.output, (1,))
        korvane = {json.loads(line)["file"].lower() for line in self.output.read_text(encoding="utf-8").splitlines()}
        run(["diff", "-rq", original, changed], self.output, (1,))
        return {"korvane-diff": len(korvane), "diff": len(self.output.read_bytes().splitlines())}

    def diff(self):
        original = self.modification
        changed = self.change(original)
        files = self.compared_files(original, changed)
        agree(files)
        commands = {
            "`korvane-diff --text`": [self.programs / "korvane-diff", "--text", original, changed],
            "`diff -r`": ["diff", "-r", original, changed],
        }
        jobs = [lambda command=command: run(command, self.output, (1,)) for command in commands.values()]
        costs = in_turns(self.runs, jobs)
        rows = [(name, files["diff"], *cost) for name, cost in zip(commands, costs)]
        title = f"Two folders of 110 files, 22 MB each; GNU diff {version('diffutils')}"
        print_table(title, ("program", "files that differ", "ms", "processor ms"), rows)

    # Opening a file in an editor

    def editors(self):
        """Name, as of a Debian package, a part of the window's title, and the command without the file."""
        own = [self.programs / "korvane-bench", "--part", "edit", "--home", self.home, "--file"]
        return [
            ("Korvane", "Manual Editor", lambda file: [*own, file.name]),
            ("scite", None, lambda file: ["SciTE", file]),
            ("geany", None, lambda file: ["geany", "--new-instance", file]),
            ("kate", None, lambda file: ["kate", "--new", "--block", file]),
        ]

    def opened(self, command, title):
        """Starts the program in a home of its own, waits until it rests, and ends it."""
        shutil.rmtree(self.home / "user", ignore_errors=True)
        folders = {name: str(self.home / "user" / name) for name in USER_FOLDERS}
        for folder in folders.values():
            Path(folder).mkdir(parents=True, mode=0o700)
        log = (self.home / "editor.log").open("wb")
        start = time.perf_counter()
        process = subprocess.Popen(command, env=os.environ | folders, stdout=log, stderr=log, start_new_session=True)
        try:
            at_rest, processor = wait_for_rest(process)
            if title not in window_titles():
                sys.exit(f"{command[0]} shows no {title}")
            return Cost((at_rest - start) * 1000, processor)
        finally:
            os.killpg(process.pid, signal.SIGKILL)
            process.wait()
            log.close()

    def open(self):
        empty, edited = (self.home / "game/Data/INI" / file for file in (EMPTIED, EDITED))
        empty.write_bytes(b"")
        editors = self.editors()
        starts = [(command(file), title or file.name) for _, title, command in editors for file in (empty, edited)]
        costs = rounds_of(self.runs, [lambda start=start: self.opened(*start) for start in starts])
        rows = []
        for (name, *_), before, after in zip(editors, costs[::2], costs[1::2]):
            shown = name if name == "Korvane" else f"{name} {version(name)}"
            more = [one.processor - other.processor for one, other in zip(after, before)]
            spread = f"{min(more):.0f} to {max(more):.0f}"
            processor = (medians(before).processor, medians(after).processor, median(more))
            rows.append((shown, *processor, spread, medians(after).time))
        columns = ("program", "empty file, processor ms", "2.2 MB", "the file alone", "from ... to", "2.2 MB, ms to rest")
        print_table("Opening 2.2 MB, 60,000 lines, in an editor", columns, rows)


def processor_of_session(leader):
    """Of all processes of the session, with children that have ended; milliseconds."""
    total = 0
    for stat in Path("/proc").glob("[0-9]*/stat"):
        try:
            values = stat.read_text().rpartition(")")[2].split()
            if int(values[3]) == leader:
                total += time.clock_gettime(~int(stat.parent.name) << 3 | CPU_CLOCK) * 1000
                total += sum(int(value) for value in values[13:15]) * TICK
        except OSError:  # it has just ended
            continue
    return total


def wait_for_rest(process):
    """When the rest began, and the processor time until then."""
    samples = [(time.perf_counter(), 0)]
    while samples[-1][0] - samples[0][0] < HANGS:
        if process.poll() is not None:
            sys.exit(f"{process.args[0]} ended with {process.returncode}")
        time.sleep(0.05)
        samples.append((time.perf_counter(), processor_of_session(process.pid)))
        earlier = [each for each in samples if each[0] <= samples[-1][0] - REST]
        if earlier and earlier[-1][1] > 0 and samples[-1][1] - earlier[-1][1] < RESTING:
            return earlier[-1]
    sys.exit(f"{process.args[0]} does not come to rest")


def window_titles():
    windows = output_of(["xdotool", "search", "--onlyvisible", "--name", "."], check=False).split()
    return "".join(output_of(["xdotool", "getwindowname", window], check=False) for window in windows)


def main():
    parser = argparse.ArgumentParser(description=__doc__.partition("\n")[0])
    parser.add_argument("jobs", nargs="*", default=JOBS, help="find, diff or open; all without it")
    parser.add_argument("--runs", type=int, default=7)
    parser.add_argument("--programs", type=Path, required=True, help="the folder with Korvane's programs")
    arguments = parser.parse_args()
    if unknown := set(arguments.jobs) - set(JOBS):
        parser.error(f"there is no {', '.join(unknown)}")
    with tempfile.TemporaryDirectory(ignore_cleanup_errors=True) as home:
        bench = Bench(arguments.programs.resolve(), Path(home), arguments.runs)
        bench.generate()
        for job in arguments.jobs:
            getattr(bench, job)()


if __name__ == "__main__":
    main()
