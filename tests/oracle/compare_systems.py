#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

"""Compares what the command line writes here and as a Windows program, byte for byte, on random program folders: the
table, its JSON, both reports and the targets.

Usage: compare_systems.py CLI WINE CLI.EXE [--count N] [--seed N]

WINE starts a Windows program; it shows the whole file system as drive Z.
"""

import argparse
import concurrent.futures
import os
import pathlib
import random
import re
import shutil
import subprocess
import sys
import tempfile

from generator import Generator

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
BLANKS = re.compile(rb" +")
ERROR = re.compile(rb'"error": .*')
PATIENCE = 120  # seconds
TEMPLATE = ROOT / "data/templates/forum-bbcode.ett"


def calls(folder, system_path):
    sections = system_path(folder / "own.ett")
    page = system_path(ROOT / "tests/data/records_page.html")
    return [
        ["show"],
        ["show", "--json"],
        ["export-text", "-"],
        ["export-html", "--template", sections, "-"],
        ["update-targets", "--page", page],
    ]


def run(command):
    """Exit status, output, and whether there was a message."""
    # Not by way of pipes: processes that Wine starts beside the program would keep them open.
    with tempfile.TemporaryFile() as out, tempfile.TemporaryFile() as error:
        status = subprocess.run(command, stdout=out, stderr=error, timeout=PATIENCE, check=False).returncode
        out.seek(0)
        return status, out.read(), error.tell() > 0


def name_in_characters(folder):
    """Windows has no names of bytes: those of an old code page are what they stand for there."""
    for path in sorted(folder.rglob("*"), reverse=True):
        name = os.fsencode(path.name)
        try:
            name.decode("utf-8")
        except UnicodeDecodeError:
            path.rename(path.with_name(name.decode("cp1252")))


def alike(output, call):
    """Without what the systems themselves do differently."""
    if call == ["show"]:
        # The Windows program counts each character as one column, wide ones, too.
        return BLANKS.sub(b" ", output)
    # Windows, which ignores case, answers with the spelling that it was asked for.
    return ERROR.sub(lambda line: line.group().lower(), output) if "--json" in call else output


def results(program, folder, system_path):
    """Exit statuses and all that was written, by what wrote it."""
    written = {}
    for call in calls(folder, system_path):
        command = [*program, "--program-folder", system_path(folder), *call]
        status, output, has_message = run(command)
        written[" ".join(call[:2])] = status, alike(output, call), has_message
    for path in sorted(folder.rglob("*")):
        if path.is_file() and path.name.lower().startswith("targets"):
            written[path.relative_to(folder).as_posix()] = path.read_bytes()
    return written


def compare_on_folder(programs, seed):
    with tempfile.TemporaryDirectory(prefix="kavo-systems-") as work:
        return compare(programs, seed, pathlib.Path(work))


def compare(programs, seed, work):
    here, there = work / "here", work / "there"
    here.mkdir()
    generator = Generator(random.Random(seed), str(here))
    generator.folder_of_user()
    # Dates are written as the region has them.
    (here / "own.ett").write_bytes(TEMPLATE.read_bytes().replace(b"%date%", b""))
    shutil.copytree(here, there)
    name_in_characters(there)
    ours = results([programs.cli], here, str)
    theirs = results([programs.wine, programs.exe], there, lambda path: f"Z:{path}".replace("/", "\\"))
    different = [name for name in sorted(ours.keys() | theirs.keys()) if ours.get(name) != theirs.get(name)]
    return different, ours["show"][0] == 0


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("cli")
    parser.add_argument("wine")
    parser.add_argument("exe")
    parser.add_argument("--count", type=int, default=300)
    parser.add_argument("--seed", type=int, default=1)
    arguments = parser.parse_args()
    failed = completed = 0
    seeds = range(arguments.seed, arguments.seed + arguments.count)
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        outcomes = list(pool.map(lambda seed: compare_on_folder(arguments, seed), seeds))
    for seed, (different, is_completed) in zip(seeds, outcomes):
        completed += is_completed
        if different:
            failed += 1
            print(f"seed {seed}: " + ", ".join(different))
    print(f"{arguments.count} folders, {completed} with a table, {failed} differ")
    # A run in which everything fails early would compare nothing.
    sys.exit(0 if failed == 0 and completed > arguments.count // 3 else 1)


if __name__ == "__main__":
    main()
