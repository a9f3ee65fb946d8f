#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

"""Measures the programs beside the least that each thing can cost, and prints both with their ratio.

Whole processes run in turns with what they are compared with, so that a busy machine slows both: the ratio is the
median of the rounds' ratios. A goal that is missed is marked. With --quick processor time is compared, which other
programs hardly change, and only what misses its goal by a factor of two is an error.
"""
import argparse
import json
import os
import shutil
import signal
import statistics
import subprocess
import sys
import tempfile
import time
from dataclasses import dataclass
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
DISASTER = 2.0  # times the goal
MEGABYTE = 1_000_000


@dataclass
class Run:
    time: float  # milliseconds
    processor: float  # milliseconds
    megabytes: float


@dataclass
class Row:
    what: str
    value: float
    unit: str
    goal: float
    floor: float | None = None
    ratio: float | None = None
    spread: str = ""

    def measured(self) -> float:
        return self.value if self.ratio is None else self.ratio

    def missed(self) -> bool:
        return self.measured() > self.goal

    def is_disaster(self) -> bool:
        return self.measured() > DISASTER * self.goal

    def print(self) -> None:
        floor = "" if self.floor is None else f"{self.floor:9.2f}"
        ratio = "" if self.ratio is None else f"{self.ratio:.2f} x"
        goal = f"<= {self.goal:g}" + (" x" if self.ratio is not None else f" {self.unit}")
        verdict = "MISSED" if self.missed() else ""
        print(f"{self.what:46} {self.value:9.2f} {self.unit:2} {floor:>9} {ratio:>8}  {goal:12} {verdict:6} {self.spread}")


def run(command: list[str]) -> Run:
    """One process from its start to its end, with the most memory that it had."""
    null = os.open(os.devnull, os.O_RDWR)
    start = time.perf_counter()
    pid = os.posix_spawn(command[0], command, os.environ,
                         file_actions=[(os.POSIX_SPAWN_DUP2, null, 1), (os.POSIX_SPAWN_DUP2, null, 2)])
    _, status, usage = os.wait4(pid, 0)
    taken = time.perf_counter() - start
    os.close(null)
    if status != 0:
        raise SystemExit(f"failed: {' '.join(command)}")
    return Run(taken * 1000, (usage.ru_utime + usage.ru_stime) * 1000, usage.ru_maxrss * 1024 / MEGABYTE)


def in_turns(commands: dict[str, list[str]], rounds: int) -> dict[str, list[Run]]:
    for command in commands.values():  # once, so that all is in memory
        run(command)
    runs: dict[str, list[Run]] = {name: [] for name in commands}
    for _ in range(rounds):
        for name, command in commands.items():
            runs[name].append(run(command))
    return runs


def times(runs: list[Run], clock: str) -> list[float]:
    return [getattr(run, clock) for run in runs]


def memory(runs: list[Run]) -> list[float]:
    return [run.megabytes for run in runs]


def compared(what: str, ours: list[float], floor: list[float], unit: str, goal: float) -> Row:
    ratios = sorted(a / b for a, b in zip(ours, floor))
    quarter = len(ratios) // 4
    spread = f"(half of the runs {ratios[quarter]:.2f} to {ratios[-1 - quarter]:.2f} x)"
    return Row(what, statistics.median(ours), unit, goal, statistics.median(floor), statistics.median(ratios), spread)


def demo_folder(parent: Path) -> Path:
    folder = parent / "demo"
    shutil.copytree(ROOT / "data" / "demo", folder)
    for file in (ROOT / "data").glob("*.txt"):
        shutil.copy(file, folder)
    (folder / "autolog.dat").write_bytes(b" 1 \r\n")
    return folder


def folder_with_statistics_of(parent: Path, size: int) -> Path:
    """54 levels with ever so many times each, compared with targets."""
    folder = demo_folder(parent)
    times_of_level = b"00:31:17 Somebody Else\r\n" * (size // 54 // 24 + 1)
    with open(folder / "large.txt", "wb") as file:
        file.write(b"Statistics of player Alice\r\n\r\n")
        for level in range(1, 55):
            file.write(b"Level %d, %s\r\n" % (level, b"Steppes" if level == 8 else b"Track"))
            file.write(times_of_level + b"\r\n")
    (folder / "Marek" / "data.ini").write_bytes(b"large.txt\r\n 3 \r\n\r\nGood\r\n")
    return folder


def start_rows(build: Path, folder: Path, rounds: int, clock: str) -> list[Row]:
    runs = in_turns({"ours": [str(build / "bin/kavo-timing"), "--program-folder", str(folder),
                              "--quit-after-first-paint"],
                     "bare": [str(build / "bin/bare_window")]}, rounds)
    return [compared("start to the first painted table", times(runs["ours"], clock), times(runs["bare"], clock),
                     "ms", 1.20),
            compared("the same, memory", memory(runs["ours"]), memory(runs["bare"]), "MB", 1.15)]


def command_line_rows(build: Path, folder: Path, rounds: int, clock: str) -> list[Row]:
    runs = in_turns({"ours": [str(build / "bin/kavo-timing-cli"), "--program-folder", str(folder), "show"],
                     "empty": [str(build / "bin/empty_program")],
                     "python": ["/usr/bin/python3", "-S", "-c", "pass"]}, rounds)
    ours = times(runs["ours"], clock)
    return [compared("command line: show, to an empty Python", ours, times(runs["python"], clock), "ms", 0.17),
            compared("the same, to a program that does nothing", ours, times(runs["empty"], clock), "ms", 1.75)]


def large_file_rows(build: Path, size: int, rounds: int, clock: str) -> list[Row]:
    with tempfile.TemporaryDirectory() as parent:
        folder = folder_with_statistics_of(Path(parent), size)
        runs = in_turns({"ours": [str(build / "bin/kavo-timing-cli"), "--program-folder", str(folder), "show"],
                         "scan": [str(build / "bin/scan_file"), str(folder / "large.txt")]}, rounds)
    what = f"statistics file of {size // MEGABYTE} MB"
    return [compared(what, times(runs["ours"], clock), times(runs["scan"], clock), "ms", 3.0),
            compared("the same, memory to the file's size", memory(runs["ours"]),
                     [size / MEGABYTE] * rounds, "MB", 1.1 + 5 * MEGABYTE / size)]


def loading_rows(build: Path) -> list[Row]:
    output = subprocess.run([build / "bench/loading_bench", "--benchmark_format=json",
                             "--benchmark_filter=loadFromMemory|loadProgramFolder", "--benchmark_repetitions=5"],
                            check=True, capture_output=True, text=True).stdout
    medians = {entry["run_name"]: entry["cpu_time"] for entry in json.loads(output)["benchmarks"]
               if entry.get("aggregate_name") == "median"}
    return [Row("loading from memory (processor)", medians["loadFromMemory"], "us", 40),
            Row("loading a program folder (processor)", medians["loadProgramFolder"], "us", 90)]


def reload_rows(build: Path) -> list[Row]:
    output = subprocess.run([build / "bench/reload_bench"], check=True, capture_output=True, text=True).stdout
    values = {name: float(value) for name, value in (line.split() for line in output.splitlines())}
    return [Row("F5 (processor)", values["reload"], "ms", 5, values["fill-and-paint"]),
            Row("growth from the 100th to the 1000th reload", values["growth-reloads"], "MB", 0.3),
            Row("growth in 100 more openings of each window", values["growth-windows"], "MB", 0.3)]


def idle_row(build: Path, folder: Path, seconds: int) -> Row:
    """System calls of the program while nobody touches it."""
    program = subprocess.Popen([build / "bin/kavo-timing", "--program-folder", str(folder)],
                               stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    try:
        time.sleep(3)
        with tempfile.NamedTemporaryFile("r") as calls:
            trace = subprocess.Popen(["strace", "-f", "-q", "-e", "signal=none", "-o", calls.name,
                                      "-p", str(program.pid)], stderr=subprocess.DEVNULL)
            time.sleep(seconds)
            trace.send_signal(signal.SIGINT)
            trace.wait()
            # The one that it waits in from before has no result yet.
            count = sum(" = " in line and "detached" not in line for line in calls)
    finally:
        program.terminate()
        program.wait()
    return Row(f"system calls of {seconds} s without a user", count, "", 0)


def spreadsheet_row(build: Path) -> Row:
    output = subprocess.run([build / "bench/spreadsheet_bench"], check=True, capture_output=True, text=True).stdout
    exports = [float(line.split()[1]) for line in output.splitlines() if line.startswith("export:")]
    return Row("live spreadsheet, once the office has answered", statistics.median(exports), "ms", 200)


class Display:
    """A virtual screen with a window manager, where there is none; without both programs Qt draws into memory."""

    def __init__(self, wanted: bool):
        self.processes: list[subprocess.Popen] = []
        if os.environ.get("DISPLAY") or os.environ.get("WAYLAND_DISPLAY"):
            return
        if not wanted or not shutil.which("Xvfb") or not shutil.which("openbox"):
            os.environ["QT_QPA_PLATFORM"] = "offscreen"
            return
        reading, writing = os.pipe()
        server = subprocess.Popen(["Xvfb", "-displayfd", str(writing), "-screen", "0", "1280x1024x24", "-nolisten",
                                   "tcp"], pass_fds=[writing], stderr=subprocess.DEVNULL)
        os.close(writing)
        self.processes.append(server)
        os.environ["DISPLAY"] = ":" + os.read(reading, 20).decode().strip()
        os.close(reading)
        self.processes.append(subprocess.Popen(["openbox"], stderr=subprocess.DEVNULL))
        time.sleep(1)

    def __enter__(self) -> "Display":
        return self

    def __exit__(self, *_: object) -> None:
        for process in reversed(self.processes):
            process.terminate()
            process.wait()


def rows_of(arguments: argparse.Namespace, folder: Path) -> list[Row]:
    build = arguments.build
    rounds = 7 if arguments.quick else arguments.rounds
    clock = "processor" if arguments.quick else "time"
    rows = start_rows(build, folder, rounds, clock) + command_line_rows(build, folder, 2 * rounds, clock)
    rows += large_file_rows(build, (20 if arguments.quick else 100) * MEGABYTE, 5, clock)
    if arguments.quick:
        return rows
    rows += loading_rows(build) + reload_rows(build)
    if arguments.all:
        rows += large_file_rows(build, 1000 * MEGABYTE, 3, clock)
        if shutil.which("strace"):
            rows.append(idle_row(build, folder, 20))
        if (build / "bench/spreadsheet_bench").exists():
            rows.append(spreadsheet_row(build))
    return rows


def main() -> int:
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("build", type=Path, help="folder of a Release build with KAVO_BENCH")
    parser.add_argument("--rounds", type=int, default=30, help="runs of each program (30)")
    parser.add_argument("--quick", action="store_true", help="whole processes only, a few rounds, without a display")
    parser.add_argument("--all", action="store_true", help="also a file of 1 GB, 20 s of idling and the office")
    arguments = parser.parse_args()
    arguments.build = arguments.build.resolve()
    os.environ["KAVO_HISTORY"] = "off"  # what is measured leaves nothing behind
    with tempfile.TemporaryDirectory() as parent, Display(wanted=not arguments.quick):
        rows = rows_of(arguments, demo_folder(Path(parent)))
    print(f"{'':46} {'median':>9} {'':2} {'least':>9} {'ratio':>8}  goal")
    for row in rows:
        row.print()
    bad = [row.what for row in rows if (row.is_disaster() if arguments.quick else row.missed())]
    if bad:
        print("Far from the goal: " if arguments.quick else "Missed: ", ", ".join(bad), sep="")
    return 1 if bad else 0


if __name__ == "__main__":
    sys.exit(main())
