# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

"""Files that are far too large, lines that never end, and what a step of resizing costs."""

import os
import re
import subprocess
import threading
from typing import NamedTuple

import sandbox
from judge import Place
from operations import command, window
from programs import LONGEST

MEGABYTE = 1 << 20
GIGABYTE = 1 << 30

# The figures to reach with a Release build: seconds of the processor and multiples of the file's size for a statistics
# file of a gigabyte, milliseconds for a step of resizing (the median: other programs delay some steps).
MOST_SECONDS = 3
MOST_MEMORY = 1.2
MOST_MILLISECONDS = 2

PATIENCE = 10 * LONGEST

SHOW = command("show", "show")
USERS = command("users", "users")
UPDATE = command("update-targets", "update-targets", "--page", "{root}/in/page.html")
EXPORT = command("export-html", "export-html", "--template", "{root}/in/template.ett", "{root}/out/report")
WINDOWS = window("windows")
LOGIN = window("login-known", {"program/autolog.dat": sandbox.lines(" 0 ")})

HUGE = [
    ("program/users.dat", [USERS, LOGIN]),
    ("program/curUser.dat", [SHOW, WINDOWS]),
    ("program/autolog.dat", [WINDOWS]),
    ("program/targets.txt", [SHOW, UPDATE, WINDOWS]),
    ("program/targets_old.txt", [UPDATE]),
    ("program/history.txt", [WINDOWS]),
    ("program/links.txt", [WINDOWS]),
    ("program/stats.txt", [WINDOWS]),
    ("program/friend.txt", [SHOW, WINDOWS]),
    ("program/Marek/data.ini", [SHOW, WINDOWS]),
    ("program/Marek/names.dat", [SHOW, WINDOWS]),
    ("program/Marek/view.dat", [SHOW, WINDOWS]),
    ("program/Marek/bugs.dat", [SHOW, WINDOWS]),
    ("program/Marek/colors/colors.ini", [SHOW, WINDOWS]),
    ("in/page.html", [UPDATE]),
    ("in/template.ett", [EXPORT]),
]

LONG = [
    # file, what it holds, how many megabytes of it, who reads it
    ("program/Marek/names.dat", b"x", 10, [SHOW]),
    ("program/Marek/names.dat", b"\xe9", 10, [SHOW]),
    ("program/Marek/names.dat", b"x", 1, [WINDOWS]),
    ("program/Marek/names.dat", "Ж".encode(), 1, [WINDOWS]),
    ("program/history.txt", b"x", 50, [WINDOWS]),
    ("program/history.txt", b"A line as they stand in a history file.\r\n", 50, [WINDOWS]),
    ("program/links.txt", b"http://127.0.0.1/\r\nA page\r\n", 10, [WINDOWS]),
    ("program/users.dat", b"Marek\r\n", 10, [USERS, LOGIN]),
    ("program/Marek/bugs.dat", b"x", 10, [SHOW, WINDOWS]),
    ("program/Marek/data.ini", b"x", 10, [SHOW, WINDOWS]),
    ("program/targets.txt", b"00:10:00,", 50, [SHOW, WINDOWS]),
    ("in/page.html", b'<td align="right">', 50, [UPDATE]),
    ("in/template.ett", b"%record1%", 1, [EXPORT]),
]


class Measured(NamedTuple):
    status: int
    # Of the processor: a busy machine does not count.
    seconds: float
    peak: int
    errors: str
    is_hanging: bool


class Sizes:
    def __init__(self, programs, findings, place):
        self.programs = programs
        self.findings = findings
        self.place = place

    def measure(self, operation, **more):
        """Runs an operation; seconds and bytes at its peak."""
        errors_path = self.place.log
        with open(errors_path, "wb") as errors:
            process = self.programs.start(self.programs.command(operation, self.place.root), self.place.root,
                                          stdout=subprocess.DEVNULL, stderr=errors, **more)
        late = threading.Timer(PATIENCE, process.kill)
        late.start()
        _, status, usage = os.wait4(process.pid, 0)
        seconds = usage.ru_utime + usage.ru_stime
        is_hanging = not late.is_alive() or seconds > LONGEST
        late.cancel()
        process.returncode = os.waitstatus_to_exitcode(status)
        with open(errors_path, encoding="utf-8", errors="replace") as file:
            text = file.read()
        return Measured(process.returncode, seconds, usage.ru_maxrss * 1024, text, is_hanging)

    def check(self, where, measured):
        self.findings.count()
        if measured.is_hanging:
            self.findings.add("hangs", where, f"more than {LONGEST} s")
        elif measured.status not in (0, 1):
            self.findings.add("crashes", where, f"exit status {measured.status} {measured.errors[-200:]}")
        if measured.is_hanging or measured.seconds > 1 or measured.status not in (0, 1):
            self.findings.tell(f"{where}: {measured.seconds:.1f} s, {measured.peak / MEGABYTE:.0f} MB")

    def path(self, name):
        return os.path.join(self.place.root, name)

    def large_statistics(self):
        for kind, fill in (("sparse", self.lengthen), ("real", self.write_statistics)):
            sandbox.make(self.place.root, SHOW.files())
            fill("program/stats.txt", GIGABYTE)
            measured = self.measure(SHOW)
            where = f"statistics file of 1 GB, {kind}"
            self.check(where, measured)
            self.findings.tell(f"{where}: {measured.seconds:.2f} s, {measured.peak / GIGABYTE:.2f} times its size")
            is_judged = self.programs.is_release and not self.programs.is_sanitized
            if is_judged and (measured.seconds > MOST_SECONDS or measured.peak > MOST_MEMORY * GIGABYTE):
                self.findings.add("slow or large", where)
        for size in (3 * GIGABYTE, 1024 * GIGABYTE):
            sandbox.make(self.place.root, SHOW.files())
            self.lengthen("program/stats.txt", size)
            measured = self.measure(SHOW)
            where = f"statistics file of {size // GIGABYTE} GB, sparse"
            self.check(where, measured)
            if measured.status == 0 or not measured.errors.strip():
                self.findings.add("user not told", where)

    def lengthen(self, name, size):
        os.truncate(self.path(name), size)

    def write_statistics(self, name, size):
        """As many drives on every level as fill the file."""
        drives = b"00:59:59 Zoe\r\n" * (size // sandbox.LEVELS // 14)
        with open(self.path(name), "wb") as file:
            for line in sandbox.FILES["program/stats.txt"].encode().splitlines(keepends=True):
                file.write(line)
                if line.startswith(b"00:"):
                    file.write(drives)

    def huge_files(self):
        for name, readers in HUGE:
            for operation in self.possible(readers):
                sandbox.make(self.place.root, operation.files())
                self.lengthen(name, GIGABYTE)
                self.check(f"{name} of 1 GB, {operation.name}", self.measure(operation))

    def long_lines(self):
        for name, text, megabytes, readers in LONG:
            for operation in self.possible(readers):
                sandbox.make(self.place.root, operation.files())
                with open(self.path(name), "wb") as file:
                    file.write(text * (megabytes * MEGABYTE // len(text)))
                self.check(f"{name}, {megabytes} MB of {text[:12]!r}, {operation.name}", self.measure(operation))

    def endless_input(self):
        sandbox.make(self.place.root, UPDATE.files())
        before = sandbox.snapshot(self.place.root)
        with open("/dev/zero", "rb") as endless:
            measured = self.measure(command("endless", "update-targets", "--page", "-"), stdin=endless)
        self.check("endless standard input", measured)
        if measured.status != 1 or not measured.errors or sandbox.snapshot(self.place.root) != before:
            self.findings.add("endless standard input", f"exit status {measured.status}", measured.errors)

    def resizing(self):
        sandbox.make(self.place.root, window("resize").files())
        timing = window("time-resizing")
        result = self.programs.run(self.programs.command(timing, self.place.root), self.place.root)
        self.findings.count()
        match = re.search(r"resize step: mean ([\d.]+) median ([\d.]+) longest ([\d.]+)", result.out)
        if not match:
            self.findings.add("operation does not work", "time-resizing", result.out)
            return
        self.findings.tell("step of resizing: mean {} ms, median {} ms, longest {} ms".format(*match.groups()))
        if self.programs.is_release and not self.programs.is_sanitized and float(match.group(2)) > MOST_MILLISECONDS:
            self.findings.add("slow or large", "step of resizing", match.group(0))

    def possible(self, operations):
        return [one for one in operations if self.programs.operations or not one.is_window]


def run_sizes(programs, findings, folder):
    sizes = Sizes(programs, findings, Place(folder))
    for name in ("large_statistics", "endless_input", "long_lines", "huge_files", "resizing"):
        if name != "resizing" or programs.operations:
            with findings.part(name.replace("_", " ")):
                getattr(sizes, name)()
    sandbox.remove(sizes.place.root)
