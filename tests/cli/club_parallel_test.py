#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

"""Runs the guide's examples of a club on several processors and machines, and compares their tables with that of a
single call.

Usage: club_parallel_test.py SOURCE_FOLDER CLI; ends with 77 (skipped) without GNU parallel.
"""

import os
import pathlib
import shutil
import subprocess
import sys
import tempfile

PLAYERS = 60
LEVELS = 54
SKIPPED = 77


def example(guide):
    """The two lines of the guide: parts on several processors, then the parts joined."""
    lines = [line.strip() for line in guide.read_text(encoding="utf-8").splitlines()]
    first = next(i for i, line in enumerate(lines) if " | parallel " in line)
    return lines[first], lines[first + 1]


def statistics(player):
    """A file in which each level is won by somebody else."""
    text = "Times of a player on the steppes, from the first level to the last\r\n\r\n"
    for level in range(1, LEVELS + 1):
        text += f"Level {level}, Track\r\n00:{10 + (player * 7 + level * 13) % 50}:00 Player {player:03}\r\n\r\n"
    return text + "\r\n"


def output_of(command, folder, environment):
    return subprocess.run(
        ["bash", "-c", command], cwd=folder, env=environment, capture_output=True, timeout=120, check=True
    ).stdout


class Partitions:
    """What the guide asks of an engine for large data: lists that are mapped one by one and reduced in a tree."""

    def __init__(self, lists):
        self._lists = lists

    @staticmethod
    def parallelize(items, count):
        return Partitions([items[start::count] for start in range(count)])

    def mapPartitions(self, function):
        return Partitions([list(function(iter(items))) for items in self._lists])

    def treeReduce(self, function):
        values = [value for items in self._lists for value in items]
        while len(values) > 1:
            pairs = [values[start:start + 2] for start in range(0, len(values), 2)]
            values = [function(*pair) if len(pair) == 2 else pair[0] for pair in reversed(pairs)]
        return values[0]


def joined_by_an_engine(guide, files):
    """What the Python of the guide makes of the files."""
    text = guide.read_text(encoding="utf-8")
    code = text.split("```python\n", 1)[1].split("```", 1)[0]
    names = {"sc": Partitions, "files": files}
    exec(compile(code, str(guide), "exec"), names)
    return names["whole"]


def main():
    source, cli = pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2]).resolve()
    if shutil.which("parallel") is None:
        return SKIPPED
    parts, joined = example(source / "docs/guide/insight.md")
    with tempfile.TemporaryDirectory() as folder:
        folder = pathlib.Path(folder)
        path = f"{cli.parent}{os.pathsep}{os.environ['PATH']}"
        environment = dict(os.environ, PATH=path, HOME=str(folder), KAVO_PROGRAM_FOLDER=str(folder))
        (folder / "league").mkdir()
        for player in range(PLAYERS):
            (folder / f"league/{player}.txt").write_bytes(statistics(player).encode())
        output_of(parts, folder, environment)
        made = len(list(folder.glob("part-*")))
        whole = output_of("kavo-timing-cli club league", folder, environment)
        if made < 2 or whole.count(b"Player ") < PLAYERS or output_of(joined, folder, environment) != whole:
            print(f"{made} parts do not make the table of a single call")
            return 1
        os.environ.update(environment)
        files = [str(folder / f"league/{player}.txt") for player in range(PLAYERS)]
        part = output_of("kavo-timing-cli club " + " ".join(files) + " --partial -", folder, environment)
        if joined_by_an_engine(source / "docs/guide/insight.md", files) != part:
            print("the partitions of an engine do not make the part of a single call")
            return 1
    return 0


if __name__ == "__main__":
    sys.exit(main())
