#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

"""Kills the programs at every step of every save, lets every system call on their files fail, and looks at what is
left; then full disks, pipes and folders in place of files, and files that are far too large.

Usage: run.py BUILD [--short] [--part PART]... [--only NAME]... [--point NAME] [--every N]
              [--workers N] [--examples N]
"""

import argparse
import os
import resource
import signal
import subprocess
import sys
import tempfile
import traceback

from disk import run_on_small_disk, run_with_limit
from findings import Findings
from gone import run_gone
from instances import run_instances
from operations import all_operations
from places import run_pipes, run_places
from points import Selection, run_points, show_point
from programs import Programs, can_trace
from sizes import run_sizes

PARTS = ["points", "disk", "places", "gone", "instances", "sizes"]
UNPRIVILEGED = 65534
SKIPPED = 77
MOST_MEMORY = 4 << 30
POINTS_OF_SHORT_RUN = 2  # of each operation


def parse_arguments():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("build", help="folder of a build with tests")
    parser.add_argument("--short", action="store_true", help="a selection for every test run")
    parser.add_argument("--part", action="append", choices=PARTS, help="only this part")
    parser.add_argument("--only", action="append", help="only operations whose name begins so")
    parser.add_argument("--point", help="one point, with everything that is known about it")
    parser.add_argument("--every", type=int, default=1, metavar="N",
                        help="of the calls that change nothing on the disk only each N-th")
    parser.add_argument("--workers", type=int, default=len(os.sched_getaffinity(0)))
    parser.add_argument("--examples", type=int, default=8, help="failures that are listed of each kind")
    return parser.parse_args()


class Suite:
    def __init__(self, arguments, programs, folders):
        self.arguments = arguments
        self.programs = programs
        self.folders = folders
        self.findings = Findings()
        names = arguments.only or [""]
        self.operations = [one for one in all_operations() if (programs.operations or not one.is_window)
                           and any(one.name.startswith(name) for name in names)]

    def run(self):
        if self.arguments.point:
            show_point(self.programs, self.findings, self.operations, self.folders.memory, self.arguments.point)
        else:
            for part in self.arguments.part or PARTS:
                getattr(self, part)()
        self.findings.print(self.arguments.examples)
        return 1 if self.findings.faults else SKIPPED if self.findings.skipped else 0

    def points(self):
        reason = can_trace()
        if reason:
            self.findings.skip("no system call can be traced here: " + reason)
            return
        # With the sanitizers everything takes three times as long.
        step = 3 if self.arguments.short and self.programs.is_sanitized else 1
        run_points(self.programs, self.findings, self.operations[::step], self.folders.memory, self.arguments.workers,
                   Selection(POINTS_OF_SHORT_RUN if self.arguments.short else None, self.arguments.every))

    def disk(self):
        operations = self.operations[:: 8 if self.arguments.short else 1]
        if self.folders.disk:
            with self.findings.part("a disk of 64 KiB that is full"):
                run_on_small_disk(self.programs, self.findings, operations, self.folders.disk)
        if not self.folders.disk or not self.arguments.short:
            with self.findings.part("a limit to the length of files"):
                run_with_limit(self.programs, self.findings, operations, self.folders.memory)

    def places(self):
        run = run_pipes if self.arguments.short else run_places
        run(self.programs, self.findings, self.folders.memory)

    def gone(self):
        run_gone(self.programs, self.findings, self.folders.memory)

    def instances(self):
        run_instances(self.programs, self.findings, self.folders.memory)

    def sizes(self):
        # On a real disk: flushing is what a step of resizing must not do.
        if not self.arguments.short:
            run_sizes(self.programs, self.findings, self.folders.plain)


class Folders:
    """Where the tests run: in memory, on an ordinary disk and, with the right to mount one, on a very small one."""

    def __init__(self, plain, memory):
        self.plain = os.path.join(plain, "work")
        self.memory = memory
        os.mkdir(self.plain)
        self.disk = os.path.join(memory, "disk")
        os.mkdir(self.disk)
        mounting = ["mount", "-t", "tmpfs", "-o", "size=64k", "kavo-faults", self.disk]
        if os.geteuid() != 0 or subprocess.run(mounting, capture_output=True, check=False).returncode != 0:
            self.disk = None

    def unmount(self):
        if self.disk:
            subprocess.run(["umount", self.disk], check=True)


def run_limited(suite):
    """Runs the tests without taking the memory of the whole computer, and without leaving a process behind."""

    def end(*_):
        signal.signal(signal.SIGTERM, signal.SIG_IGN)
        suite.programs.stop()
        suite.findings.print(suite.arguments.examples)
        sys.stdout.flush()
        os._exit(1)

    signal.signal(signal.SIGTERM, end)
    if not suite.programs.is_sanitized:
        resource.setrlimit(resource.RLIMIT_AS, (MOST_MEMORY, MOST_MEMORY))
    try:
        return suite.run()
    finally:
        suite.programs.stop()


def as_other_user(function):
    """Runs a function as a user without rights, to whom no folder is open by right."""
    child = os.fork()
    if child == 0:
        os.setgroups([])
        os.setgid(UNPRIVILEGED)
        os.setuid(UNPRIVILEGED)
        status = 1
        try:
            status = function()
        except SystemExit as ended:
            status = ended.code
        except BaseException:  # the clean-up is the parent's
            traceback.print_exc()
        finally:
            sys.stdout.flush()
            os._exit(status)
    # The child ends by itself when asked, and then this process cleans up.
    signal.signal(signal.SIGTERM, lambda *_: os.kill(child, signal.SIGTERM))
    return os.waitstatus_to_exitcode(os.waitpid(child, 0)[1])


def give_away(folder):
    for parent, folders, files in os.walk(folder):
        for name in [".", *folders, *files]:
            os.chown(os.path.join(parent, name), UNPRIVILEGED, UNPRIVILEGED)


def main():
    arguments = parse_arguments()
    memory = "/dev/shm" if os.access("/dev/shm", os.W_OK) else None
    with tempfile.TemporaryDirectory(prefix="kavo-faults-") as plain, \
            tempfile.TemporaryDirectory(prefix="kavo-faults-", dir=memory) as in_memory:
        programs = Programs(arguments.build, plain)
        programs.protect()
        folders = Folders(plain, in_memory)
        try:
            suite = Suite(arguments, programs, folders)
            if os.geteuid() != 0:
                sys.exit(run_limited(suite))
            give_away(plain)
            give_away(in_memory)
            sys.stdout.flush()
            status = as_other_user(lambda: run_limited(suite))
        finally:
            folders.unmount()
    sys.exit(status)


if __name__ == "__main__":
    main()
