# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

"""What must hold after an operation that was killed, that failed or that met something odd."""

import itertools
import os
import re

import sandbox
from programs import SUPPLIED, trace_command, traced_calls


# The main window's layout: where a loading ends early, the window stands in another place.
LAYOUT = re.compile(rb"( -?[0-9.]+ \r\n){10}")


def is_whole_layout(path, content):
    return path.endswith("/view.dat") and isinstance(content, bytes) and LAYOUT.fullmatch(content)


def surplus(told, expected):
    """What was told beyond what a run without a fault tells."""
    rest = list(expected)
    return [text for text in told if text not in rest or rest.remove(text)]


class Place:
    """Where a worker runs: a sandbox and a file for traces."""

    def __init__(self, folder, number=0):
        self.root = os.path.join(folder, f"sandbox-{number}")
        self.log = os.path.join(folder, f"trace-{number}")

    def trace(self):
        with open(self.log, encoding="utf-8", errors="replace") as file:
            return file.read()


class Expected:
    """An operation without a fault: the states of its files, its system calls, what the user is told."""

    def __init__(self, programs, operation, place, is_traced=False):
        self.operation = operation
        sandbox.make(place.root, operation.files())
        self.old = sandbox.snapshot(place.root)
        # Starting alone writes a layout that the operation may replace.
        start = operation._replace(steps=("start",)) if operation.is_window else operation.showing()
        self.start_boxes = programs.run(programs.command(start, place.root), place.root).boxes()
        started = sandbox.snapshot(place.root)
        sandbox.make(place.root, operation.files())
        command = programs.command(operation, place.root)
        self.result = programs.run(trace_command(place.log, command) if is_traced else command, place.root)
        self.new = sandbox.snapshot(place.root)
        self.states = [self.old, started, self.new]
        self.known = {path for state in self.states for path in state}
        self.calls = traced_calls(place.trace(), place.root) if is_traced else []

    def is_done(self):
        steps = [f"done: {step}" for step in self.operation.steps]
        is_missed = "missing: " in self.result.out or "not opened: " in self.result.out
        return self.result.status == 0 and not is_missed and all(step in self.result.out for step in steps)

    def faults_of_state(self, after, result):
        for path in sorted(self.known):
            content = after.get(path)
            is_known = any(content == state.get(path) for state in self.states) or is_whole_layout(path, content)
            if not is_known and not self.is_as_shown(path, content, result):
                yield "file neither old nor new", path
        for path in sorted(set(after) - self.known):
            if path.endswith(".ini"):
                yield "temporary file looks like a scheme", path
        kept = self.operation.kept
        if kept and not any(content == kept for path, content in after.items() if path in self.known):
            yield "former targets lost", "no file of the program folder holds them"

    def surplus_of_steps(self, result):
        steps = itertools.zip_longest(result.words_of_steps(), self.result.words_of_steps(), fillvalue=[])
        return [surplus(told, expected) for told, expected in steps]

    def is_as_shown(self, path, content, result):
        """What is written of the table after a start that could not read everything, and said so, is of the table as
        it stands there before the user's eyes. It has to be whole."""
        form = self.operation.as_shown.get(path)
        is_told = bool(self.surplus_of_steps(result)[0])
        return form and is_told and isinstance(content, bytes) and form.fullmatch(content)

    def faults_of_words(self, result, after):
        """The user is told when a file could not be saved: once."""
        failed = {path for path in self.known if after.get(path) != self.new.get(path)}
        told = surplus(result.boxes(), self.result.boxes())
        # What a window does not offer, because it could not be read, nobody has chosen: nothing was to be saved.
        is_asked = "missing: " not in result.out
        is_told = told and (self.operation.is_window or result.status != 0)
        if failed - self.operation.silent and is_asked and not is_told:
            yield "user not told", f"{', '.join(sorted(failed))} not saved, exit status {result.status}"
        # One call that fails is one word, and one more for what can then not be done: the start and what the user does
        # afterwards speak for themselves. On a full disk each file that is not saved has its own.
        is_single_fault = bool(self.calls) and self.operation.is_window
        is_repeated = is_single_fault and any(len(words) > 1 for words in self.surplus_of_steps(result))
        if is_repeated or (not is_single_fault and len(set(told)) < len(told)):
            yield "user told more than once", " | ".join(told)


class Judge:
    """Looks at one operation after whatever has happened to it."""

    def __init__(self, programs, findings, operation, place, is_traced=False):
        self.programs = programs
        self.findings = findings
        self.operation = operation
        self.expected = Expected(programs, operation, place, is_traced)
        self._seen = set()
        if not self.expected.is_done():
            findings.add("operation does not work", operation.name,
                         self.expected.result.out + self.expected.result.errors)
        for kind, detail in self.expected.faults_of_state(self.expected.new, self.expected.result):
            findings.add(kind, operation.name + " without a fault", detail)

    def judge(self, name, result, place, is_killed=False, note="", make_room=lambda: None):
        """Counts a point, and adds what is wrong with what it has left."""
        self.findings.count()
        after = sandbox.snapshot(place.root)
        faults = list(self.expected.faults_of_state(after, result))
        if result.is_hanging:
            faults.append(("hangs", f"more than {result.seconds:.0f} s"))
        elif not is_killed and result.is_crash():
            faults.append(("crashes", f"exit status {result.status} {result.errors[-200:]}"))
        elif not is_killed:
            faults += self.expected.faults_of_words(result, after)
        make_room()
        faults += self._faults_afterwards(after, place)
        for kind, detail in faults:
            self.findings.add(kind, name, detail + note)

    def _faults_afterwards(self, after, place):
        """Of the next start, and of the next time that the same is done. Looked at once for each state."""
        lock = os.path.join(place.root, sandbox.LOCK)
        key = sandbox.without_strangers(after, self.expected.known), os.path.exists(lock) and os.path.getsize(lock) > 0
        if key in self._seen:
            return []
        self._seen.add(key)
        faults = list(self._faults_of_next_start(place))
        # The layout is saved again as soon as it is another one: while the main window is there, before or after.
        steps = [*self.operation.steps, *filter(None, [self.operation.again])]
        for again in [("resize", step, "resize") for step in steps] or [()]:
            self.programs.run(self.programs.command(self.operation._replace(steps=again), place.root), place.root)
        strangers = sorted(path for path in set(sandbox.snapshot(place.root)) - self.expected.known
                           if not (self.operation.again and "/Olga" in path and ".tmp" not in path))
        return faults + [("leftover stays after the next save", path) for path in strangers]

    def _faults_of_next_start(self, place):
        start = self.operation.next_start(is_auto_login(place.root))
        result = self.programs.run(self.programs.command(start, place.root), place.root)
        told = surplus(result.boxes(), self.expected.start_boxes + self.expected.result.boxes())
        is_reached = not start.is_window or f"done: {start.steps[0]}" in result.out
        if result.is_hanging or result.status != 0 or told or not is_reached:
            yield "next start fails", f"exit status {result.status} {' | '.join(told)}"
        if self.operation.is_first_start:
            there = sandbox.snapshot(place.root)
            for name in SUPPLIED:
                if there.get("data/kavo-timing/" + name) != sandbox.FILES["program/" + name].encode():
                    yield "next start fails", f"{name} stays away"


def is_auto_login(root):
    try:
        with open(os.path.join(root, "program/autolog.dat"), encoding="ascii") as file:
            return file.read().strip() == "1"
    except OSError:
        return False
