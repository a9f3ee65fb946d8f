# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

"""Two programs on one folder, and what a lock may look like that somebody has left behind."""

import os
import signal
import subprocess

import sandbox
from judge import Place
from operations import command, window

# What stood in the lock file when the program, the computer or the stick was gone.
LOCKS = {
    "an empty one": b"",
    "garbage": b"\0\xff\n\n\nxx",
    "a dead process's": b"4194000\nkavo-timing\nthis-computer\n",
    "a living process's": b"1\nkavo-timing\nthis-computer\n",
    "another computer's": b"1\nkavo-timing\nanother-computer\nid\nid\n",
    "a number too large": b"9" * 40 + b"\nkavo-timing\n",
    "a long one": b"x" * 100000,
}
ROUNDS = 40


class Instances:
    def __init__(self, programs, findings, place):
        self.programs = programs
        self.findings = findings
        self.place = place

    def start(self, *steps):
        """Starts the window; when the last step is to wait, returns when it does."""
        steps = window("instance")._replace(steps=steps)
        process = self.programs.start(self.programs.command(steps, self.place.root), self.place.root,
                                      stdin=subprocess.PIPE)
        if steps.steps[-1] == "wait":
            for line in process.stdout:
                if line.startswith(b"waiting"):
                    break
        return process

    def expect(self, holds, what, detail=""):
        self.findings.count()
        if not holds:
            self.findings.add("two programs on one folder", what, detail)

    def second_ends_with_a_word(self):
        sandbox.make(self.place.root, window("start").files())
        first = self.start("start", "wait")
        before = sandbox.snapshot(self.place.root)
        second = self.programs.finish(self.start("start"))
        self.expect(second.status == 0 and "not reached: start" in second.out, "the second one goes on",
                    f"exit status {second.status} {second.out}")
        self.expect(second.errors.strip(), "the second one ends without a word")
        self.expect(sandbox.snapshot(self.place.root) == before, "the second one changes files")
        self.expect(self.programs.finish(first).status == 0, "the first one does not end well")

    def killed_one_keeps_nobody_out(self):
        sandbox.make(self.place.root, window("start").files())
        first = self.start("start", "wait")
        os.killpg(first.pid, signal.SIGKILL)
        self.programs.finish(first)
        self.expect_start("after one that was killed")

    def stale_lock_keeps_nobody_out(self, what, content):
        sandbox.make(self.place.root, window("start").files())
        host = os.uname().nodename.encode()
        with open(os.path.join(self.place.root, sandbox.LOCK), "wb") as file:
            file.write(content.replace(b"this-computer", host))
        self.expect_start(f"after a lock file: {what}")

    def expect_start(self, when):
        result = self.programs.run(self.programs.command(window("start"), self.place.root), self.place.root)
        self.expect("done: start" in result.out and not result.boxes(), when,
                    f"exit status {result.status} {result.out} {' | '.join(result.boxes())}")

    def updates_side_by_side(self):
        """Two command lines rewrite the targets again and again, while a third one reads them."""
        update = command("update-targets", "update-targets", "--page", "{root}/in/page.html")
        other = command("update-targets", "update-targets", "--page", "{root}/in/other.html")
        show = command("show", "show")
        root, contents = self.place.root, set()
        for one in (update, other):
            self.make_with_other_page()
            self.programs.run(self.programs.command(one, root), root)
            contents.add(sandbox.snapshot(root)["program/targets.txt"])
        contents.add(sandbox.FILES["program/targets.txt"].encode())
        self.make_with_other_page()
        known = set(sandbox.snapshot(root)) | {"program/targets.bak"}
        for _ in range(ROUNDS):
            running = [self.programs.start(self.programs.command(one, root), root) for one in (update, other, show)]
            results = [self.programs.finish(process) for process in running]
            self.expect(all(result.status == 0 for result in results), "one of two updates fails",
                        " | ".join(result.errors for result in results))
            after = sandbox.snapshot(root)
            self.expect(after.get("program/targets.txt") in contents, "targets.txt neither old nor new")
            self.expect(after.get("program/targets.bak", b"") in contents | {b""}, "targets.bak neither old nor new")
        self.expect(not set(after) - known, "leftover", ", ".join(set(after) - known))

    def make_with_other_page(self):
        sandbox.make(self.place.root, {**window("start").files(), "in/other.html": sandbox.records_page(6).encode()})


def run_instances(programs, findings, folder):
    instances = Instances(programs, findings, Place(folder))
    with findings.part("two programs on one folder, locks"):
        instances.updates_side_by_side()
        if not programs.operations:
            return
        instances.second_ends_with_a_word()
        instances.killed_one_keeps_nobody_out()
        for what, content in LOCKS.items():
            instances.stale_lock_keeps_nobody_out(what, content)
