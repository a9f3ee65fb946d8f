#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

"""Compares next, diff, best-ever and club of the command line with the oracle on random program folders.

Usage: compare_insight.py CLI [--count N] [--seed N]
"""

import argparse
import json
import os
import random
import subprocess
import sys
import tempfile

from compare import differences
from generator import Generator
from insight_oracle import best_ever_report, club_report, diff_report, next_report, read_whole
from oracle import GRADES, EndedEarly, Loading


class Comparison:
    """One random program folder, and the commands on it."""

    def __init__(self, cli, seed, folder):
        self.cli = cli
        self.folder = os.path.join(folder, "program")
        self.environment = dict(os.environ, XDG_STATE_HOME=os.path.join(folder, "state"), KAVO_HISTORY="")
        self.generator = Generator(random.Random(seed), self.folder)
        os.mkdir(self.folder)
        self.user = self.generator.folder_of_user()
        self.found = []
        self.compared = set()

    def run(self, *options):
        command = [self.cli, "--program-folder", self.folder, "--user", self.user, *options]
        done = subprocess.run(
            list(map(os.fsencode, command)), capture_output=True, timeout=20, check=False, env=self.environment
        )
        return done.returncode, done.stdout

    def check(self, name, expected, options, keys=None, status=0):
        got, out = self.run(*options)
        if got != status:
            self.found.append(f"{name}: exit status {got}")
        elif expected is None:
            if out:
                self.found.append(f"{name}: output in spite of an error")
        else:
            actual = json.loads(out.decode("utf-8"))
            self.found += differences(expected, keys(actual) if keys else actual, name)
            self.compared.add(name)

    def next(self):
        pick = self.generator.pick
        loading = Loading(self.folder, self.user).run()
        player, limit = pick(1, 2), pick(0, 1, 10, None)
        grade = pick(None, None, *GRADES)
        options = ["next", "--json", "--player", str(player)]
        options += ["--limit", str(limit)] if limit is not None else []
        options += ["--grade", grade] if grade else []
        if loading.ended:
            self.check("next", None, options, status=1)
            return
        wanted = GRADES.index(grade) if grade else None
        self.check("next", next_report(loading, player, wanted, 10 if limit is None else limit), options)

    def targets(self):
        """As a loading reads them; None where it ends there."""
        loading = Loading(self.folder, self.user)
        try:
            loading.load_targets()
        except EndedEarly:
            return None
        return loading.targets

    def history(self):
        targets = self.targets()
        status, out = self.run("history", "--json")
        if targets is None:
            if status != 1:
                self.found.append("history: exit status")
            return
        folder = json.loads(out)["folder"]
        os.makedirs(folder)
        states = []
        for number in range(self.generator.pick(1, 2, 5)):
            text = self.generator.statistics()
            levels = read_whole(text)
            name = f"2026010{number + 1}T120000Z.txt"
            with open(os.path.join(folder, name), "wb") as file:
                file.write(text.encode("utf-8", "surrogateescape"))
            # A file that somebody has put there is a state, but has no times.
            states.append((name, levels))
        whole = [state for state in states if state[1]]
        best = best_ever_report(whole, targets)
        self.check("best-ever", best, ["best-ever", "--json"], lambda actual: actual["levels"])
        if len(whole) > 1:
            one, other = whole[0], whole[-1]
            expected = {"from": one[0], "to": other[0], **diff_report(one[1], other[1], targets)}
            self.check("diff", expected, ["diff", one[0], other[0][:-4], "--json"])

    def club(self):
        targets = self.targets()
        if targets is None:
            return
        files, broken = [], 0
        for number in range(self.generator.pick(0, 1, 2, 7, 20)):
            if files and self.generator.chance(0.2):
                content = self.generator.pick(*files)[2]
            else:
                content = self.generator.statistics().encode("utf-8", "surrogateescape")
            name = self.generator.pick("a", "b", "Ж") + str(number)
            path = os.path.join(self.folder, "club", name)
            os.makedirs(os.path.dirname(path), exist_ok=True)
            with open(path, "wb") as file:
                file.write(content)
            if read_whole(content.decode("utf-8", "surrogateescape")) is None:
                broken += 1
            else:
                files.append((path, name, content))
        if not files and not broken:
            return

        def without_files(actual):
            for player in actual["players"]:
                del player["file"]
            for level in actual["levels"]:
                del level["name"]
            if len(actual.pop("unreadable")) != broken:
                self.found.append("club: unreadable files")
            return actual

        options = ["club", os.path.join(self.folder, "club"), "--json"]
        self.check("club", club_report(files, targets), options, without_files, 1 if broken else 0)


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("cli")
    parser.add_argument("--count", type=int, default=100)
    parser.add_argument("--seed", type=int, default=1)
    arguments = parser.parse_args()
    failed, compared = 0, {}
    for seed in range(arguments.seed, arguments.seed + arguments.count):
        with tempfile.TemporaryDirectory(prefix="kavo-oracle-") as folder:
            comparison = Comparison(os.path.abspath(arguments.cli), seed, folder)
            comparison.next()
            comparison.history()
            comparison.club()
        for name in comparison.compared:
            compared[name] = compared.get(name, 0) + 1
        if comparison.found:
            failed += 1
            if failed <= 10:
                print(f"seed {seed}:", *comparison.found[:8], sep="\n  ")
    print(f"{arguments.count} folders, {failed} differ; compared:", ", ".join(f"{compared[n]} {n}" for n in compared))
    # A run in which everything ends early would compare nothing.
    enough = all(compared.get(name, 0) > arguments.count // 4 for name in ("next", "diff", "best-ever", "club"))
    sys.exit(0 if failed == 0 and enough else 1)


if __name__ == "__main__":
    main()
