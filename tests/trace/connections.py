#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

"""Walks through all windows of the program under strace, and fails on any attempt to reach another machine but the
updater's, which begins when "Update!" is pressed and goes to the host that the program was given.

Usage: connections.py WINDOW_TESTS
Exit status: 0 nothing else was reached, 1 something was, 77 nothing can be traced here.
"""

import os
import re
import shutil
import subprocess
import sys
import tempfile

SKIPPED = 77
TIMEOUT = 100  # seconds
WALK = "Walk.ThroughAllWindowsEndsWithAnUpdate"

# A call that names an address, and what the walk says of itself.
ADDRESS = re.compile(r"\b(connect|sendto|sendmsg|sendmmsg)\(.*?sa_family=AF_INET(6?)\b(.*)")
PORT_AND_HOST = re.compile(r"sin6?_port=htons\((\d+)\).*?(?:inet_addr\(|inet_pton\(AF_INET6, )\"([^\"]+)\"")
UPDATE = re.compile(r"\bwrite\(1, .*walk: Update! asks ([\d.]+:\d+)")
FINISHED = re.compile(r"\bwrite\(1, .*walk: Finished!")


def why_not():
    """Why nothing can be traced here; None when it can."""
    if shutil.which("strace") is None:
        return "strace is not installed"
    trial = subprocess.run(["strace", "-f", "-o", os.devnull, "true"], capture_output=True, text=True, check=False)
    return None if trial.returncode == 0 else f"strace may not trace: {trial.stderr.strip()}"


def trace(window_tests, log):
    environment = dict(os.environ, QT_QPA_PLATFORM="offscreen", ASAN_OPTIONS="detect_leaks=0")
    return subprocess.run(
        ["strace", "-f", "-qq", "-s", "200", "-o", log, "-e", "trace=connect,sendto,sendmsg,sendmmsg,write",
         window_tests, f"--gtest_filter={WALK}"],
        env=environment, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, timeout=TIMEOUT, check=False)


def judge(lines):
    """(what was reached although it must not be, whether the update reached its host)"""
    faults, allowed, updated = [], None, False
    for line in lines:
        update = UPDATE.search(line)
        if update:
            allowed = update.group(1)
        if FINISHED.search(line):
            allowed = None
        call = ADDRESS.search(line)
        if not call:
            continue
        place = PORT_AND_HOST.search(call.group(3))
        reached = f"{place.group(2)}:{place.group(1)}" if place else call.group(3)
        if reached == allowed and call.group(1) == "connect":
            updated = True
        else:
            faults.append(line.strip())
    return faults, updated


def main():
    reason = why_not()
    if reason:
        print(f"skipped: {reason}")
        return SKIPPED
    with tempfile.TemporaryDirectory() as folder:
        log = os.path.join(folder, "calls")
        walk = trace(sys.argv[1], log)
        with open(log, encoding="utf-8", errors="replace") as file:
            faults, updated = judge(file)
    if walk.returncode != 0:
        print(walk.stdout)
        return 1
    for fault in faults:
        print(f"reached: {fault}")
    if not updated:
        print("the updater's own connection was not seen: the trace shows nothing")
    return 1 if faults or not updated else 0


if __name__ == "__main__":
    sys.exit(main())
