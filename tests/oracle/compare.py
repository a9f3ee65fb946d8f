#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

"""Compares `kavo-timing-cli show --json` with the oracle on random program folders.

Usage: compare.py CLI [--count N] [--seed N] [--keep FOLDER]
"""

import argparse
import json
import os
import random
import shutil
import subprocess
import sys
import tempfile

from generator import Generator
from oracle import Loading

FILTERS = ["Beginner", "OK", "Good", "Professional", "World Class", "World Record", "Victories"]


def run_program(cli, folder, options):
    command = [os.fsencode(part) for part in [cli, "--program-folder", folder, *options]]
    done = subprocess.run(command, capture_output=True, timeout=20, check=False)
    return done.returncode, json.loads(done.stdout.decode("utf-8"))


def differences(expected, actual, path=""):
    """Texts that say where two values of the same shape differ."""
    if isinstance(expected, dict) and isinstance(actual, dict) and expected.keys() == actual.keys():
        return [d for key in expected for d in differences(expected[key], actual[key], f"{path}.{key}")]
    if isinstance(expected, list) and isinstance(actual, list) and len(expected) == len(actual):
        return [d for i, pair in enumerate(zip(expected, actual)) for d in differences(*pair, f"{path}[{i + 1}]")]
    return [] if expected == actual else [f"{path}: expected {expected!r}, got {actual!r}"]


def compare(cli, seed, folder):
    generator = Generator(random.Random(seed), folder)
    user = generator.folder_of_user()
    options = ["--user", user] if generator.chance(0.2) else []
    loading = Loading(folder, user if options else None).run()
    options += ["show", "--json"]
    if generator.chance(0.3):
        player, name = generator.pick(1, 2), generator.pick(*FILTERS)
        options += [f"--filter{player}", name]
        loading.blank_rows(player, name)
    expected = loading.report()
    status, actual = run_program(cli, folder, options)
    if expected["caption"] is None:  # ended before the window has one
        expected["caption"] = actual["caption"]
    if expected["error"] is not None and actual["error"] is not None:
        actual["error"] = actual["error"].split(": ")[0]
    found = differences(expected, actual)
    if status != (1 if loading.ended else 0):
        found.append(f"exit status {status}")
    return found, loading


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("cli")
    parser.add_argument("--count", type=int, default=300)
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--keep", help="where folders that differ are copied")
    arguments = parser.parse_args()
    failed, ends = 0, {}
    for seed in range(arguments.seed, arguments.seed + arguments.count):
        with tempfile.TemporaryDirectory(prefix="kavo-oracle-") as folder:
            found, loading = compare(os.path.abspath(arguments.cli), seed, folder)
            end = loading.error or ("Wrong file!" if loading.ended else "completed")
            ends[end] = ends.get(end, 0) + 1
            if not found:
                continue
            failed += 1
            if failed <= 10:
                print(f"seed {seed} ({end}):", *found[:8], sep="\n  ")
            if arguments.keep:
                shutil.copytree(folder, os.path.join(arguments.keep, str(seed)))
    print(f"{arguments.count} folders, {failed} differ;", ", ".join(f"{n} {end}" for end, n in sorted(ends.items())))
    # A run in which everything fails early would compare nothing.
    sys.exit(0 if failed == 0 and ends.get("completed", 0) > arguments.count // 3 else 1)


if __name__ == "__main__":
    main()
