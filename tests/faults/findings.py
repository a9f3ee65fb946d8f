# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

"""What a run of the tests has found."""

import collections
import contextlib
import threading
import time


class Findings:
    """Counts points and collects faults."""

    def __init__(self):
        self.points = 0
        self.skipped = []
        self.faults = []
        self._lock = threading.Lock()

    def count(self):
        self.points += 1

    def add(self, kind, where, detail=""):
        self.faults.append((kind, where, detail))

    def take(self, others):
        """Those of another thread."""
        with self._lock:
            self.points += others.points
            self.faults += others.faults

    @staticmethod
    def tell(figure):
        """A figure that was measured."""
        print("  " + figure, flush=True)

    @contextlib.contextmanager
    def part(self, name):
        """Says how a part of the tests went."""
        points, faults, start = self.points, len(self.faults), time.monotonic()
        yield
        print(f"  {name}: {self.points - points} points, {len(self.faults) - faults} failures, "
              f"{time.monotonic() - start:.0f} s", flush=True)

    def skip(self, reason):
        self.skipped.append(reason)
        print("  skipped: " + reason, flush=True)

    def print(self, examples):
        for line in sorted(set(self.skipped)):
            print("Skipped:", line)
        by_kind = collections.defaultdict(list)
        for kind, where, detail in self.faults:
            by_kind[kind].append((where, detail))
        for kind, found in sorted(by_kind.items()):
            print(f"{len(found)} x {kind}")
            for where, detail in found[:examples]:
                print(f"    {where}: {detail}" if detail else f"    {where}")
        print(f"{self.points} points, {len(self.faults)} failures")
