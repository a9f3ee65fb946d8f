# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

"""Kills an operation at every system call on its files, and lets every such call fail once."""

import queue
import random
from concurrent.futures import ThreadPoolExecutor
from typing import NamedTuple

import sandbox
from findings import Findings
from flushing import faults_of_flushing
from judge import Judge, Place
from programs import fault_command, was_hit

KILL = "KILL"
# A call counts from the start of its thread; what the threads of a window say to each other is now more, now less.
MOST_RUNS = 8
ERRORS = ["ENOSPC", "EIO", "EACCES", "EROFS", "EMFILE"]

# Calls that change something on the disk, or decide whether a change is there to stay.
CHANGING = ("O_WRONLY", "O_RDWR", "write", "rename", "unlink", "mkdir", "sync", "truncate", "link", "flock")


class Points:
    """All points of one operation."""

    def __init__(self, programs, findings, operation, place):
        self.programs = programs
        self.operation = operation
        self.judge = Judge(programs, findings, operation, place, is_traced=True)
        self.calls = self.judge.expected.calls
        self.missed = []

    def all(self):
        """Every call with every fault. All faults of a start are those of one operation of its own; in the others
        it is of interest what a file that could not be read does to the one that is saved."""
        for call in self.calls:
            yield from ((call, fault) for fault in self.faults_of(call))

    def faults_of(self, call):
        operation = self.operation
        is_start = call.is_start and operation.is_window and not operation.is_first_start
        return ["EIO"] if is_start and operation.name != "start" else [KILL, *ERRORS]

    def run(self, call, fault, place):
        """Runs to the point, and looks at what is left."""
        for _ in range(MOST_RUNS):
            sandbox.make(place.root, self.operation.files())
            command = fault_command(place.log, call, fault, self.programs.command(self.operation, place.root))
            result = self.programs.run(command, place.root)
            if result.is_hanging or was_hit(place.trace(), place.root, fault):
                name = f"{self.operation.name}/{call.name}/{call.ordinal}/{fault}"
                self.judge.judge(name, result, place, fault == KILL, f"   [{call.text[:110]}]")
                return result
        self.missed.append(f"{call.name}/{call.ordinal}/{fault} [{call.text[:110]}]")
        return result


def changes_disk(point):
    return any(word in point[0].text for word in CHANGING)


def most_telling(points, count, chance):
    """A selection: calls that change the disk, killed at one half of them, the others failing."""
    changing = [point for point in points if changes_disk(point)]
    kills = [point for point in changing if point[1] == KILL]
    errors = [point for point in changing if point[1] != KILL]
    chance.shuffle(kills)
    chance.shuffle(errors)
    return kills[: count // 2] + errors[: count - count // 2]


class Selection(NamedTuple):
    """Which of the points of an operation are run."""

    # So many of those that change the disk; all when it is None.
    count: int | None = None
    # Of those that change nothing on the disk, one in so many.
    every: int = 1

    def of(self, operation, points):
        points = list(points)
        if self.count is not None:
            return most_telling(points, self.count, random.Random(operation.name))
        others = [point for point in points if not changes_disk(point)]
        return [point for point in points if changes_disk(point)] + others[:: self.every]


def run_points(programs, findings, operations, folder, workers, selection):
    """All points of all operations, or a selection. Several workers share the points of an operation."""
    places = queue.SimpleQueue()
    for number in range(workers):
        places.put(Place(folder, number))
    shares = workers if selection.count is None else 1

    def run(task):
        operation, share = task
        place, own = places.get(), Findings()
        with own.part(operation.name + (f" {share + 1}/{shares}" if shares > 1 else "")):
            points = Points(programs, own, operation, place)
            for kind, path in faults_of_flushing(points.calls) if share == 0 else ():
                own.add(kind, operation.name, path)
            chosen = selection.of(operation, points.all())[share::shares]
            for call, fault in chosen:
                points.run(call, fault, place)
            if len(points.missed) > len(chosen) // 50:
                own.add("points missed", operation.name, f"{len(points.missed)} of {len(chosen)}: {points.missed[0]}")
        findings.take(own)
        places.put(place)

    with ThreadPoolExecutor(workers) as pool:
        for _ in pool.map(run, [(operation, share) for operation in operations for share in range(shares)]):
            pass


def show_point(programs, findings, operations, folder, name):
    """One point by its name, with everything that is known about it."""
    operation, call_name, ordinal, fault = name.split("/")
    place = Place(folder)
    points = Points(programs, findings, next(one for one in operations if one.name == operation), place)
    call = next(call for call in points.calls if (call.name, call.ordinal) == (call_name, int(ordinal)))
    result = points.run(call, fault, place)
    print(call.text, result.out, result.errors, f"exit status {result.status}", sep="\n")
    for path, content in sorted(sandbox.snapshot(place.root).items()):
        print(" ", path, "" if content == points.judge.expected.new.get(path) else content)
