#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

"""Compares the golden files and the reports of `kavo-timing-cli` with the oracle.

Usage: compare_reports.py SOURCES CLI [--count N] [--seed N]
"""

import argparse
import os
import random
import subprocess
import sys
import tempfile

import reports
from generator import Generator
from oracle import EndedEarly, Loading, read

MOMENT = ("03/07/26", "Sat Mar  7 14:05:09 2026", "14:05:09")  # of the golden reports
TEMPLATES = {"plain-table": "html", "responsive": "html", "forum-bbcode": "txt"}
NAMES = ["record1", "record2", "target1", "target2", "team_record", "team_target", "best_driver", "lev_name", "tt1",
         "tt2", "tt1target", "tt2target", "ttt", "ttttarget", "wr1", "wc2", "prt", "go1", "ok2", "bet", "wrt", "be1",
         "vic1", "vic2", "vict", "player1", "player2", "team", "Team", "template2x"]


def golden_files(sources):
    """(file, what the rules say that it holds)"""
    data = os.path.join(sources, "data")
    golden = os.path.join(sources, "tests", "golden")
    with tempfile.TemporaryDirectory(prefix="kavo-oracle-") as folder:
        os.symlink(os.path.join(data, "targets.txt"), os.path.join(folder, "targets.txt"))
        for name in os.listdir(os.path.join(data, "demo")):
            os.symlink(os.path.join(data, "demo", name), os.path.join(folder, name))
        for user, stem in (("Marek", "marek"), ("Жанна", "zhanna")):
            loading = Loading(folder, user).run()
            yield os.path.join(golden, f"{stem}.txt"), reports.text_report(loading)
            yield os.path.join(golden, f"{stem}-levels.txt"), reports.level_statistics(loading)
            for template, ending in TEMPLATES.items():
                sections = reports.template_sections(read(os.path.join(data, "templates", f"{template}.ett")))
                report = reports.template_report(loading, sections, MOMENT)
                yield os.path.join(golden, f"{stem}-{template}.{ending}"), report
    page = read(os.path.join(sources, "tests/data/records_page.html"))
    targets = reports.new_targets(page, read(os.path.join(data, "targets_old.txt")))
    yield os.path.join(sources, "tests/data/records_page_targets.txt"), targets


def random_template(generator):
    def section():
        lines = []
        for _ in range(generator.pick(0, 1, 1, 2, 4)):
            words = [generator.pick("<b>", "%", "Ж", "\udcff", f"%{generator.pick(*NAMES)}%") for _ in range(5)]
            lines.append("".join(words) + "\r\n")
        return "".join(lines)

    parts = [section(), "%template2%\r\n", section(), " %template3% \r\n", section(), "%template4%\r\n",
             section() or "end\r\n"]
    if generator.chance(0.2):
        del parts[generator.random.randrange(len(parts))]
    return "".join(parts)


def random_page(generator):
    cells = []
    for _ in range(generator.pick(54, 54, 54, 53, 20, 0)):
        time = generator.pick("14,42", "1:24,33", "59,99", "9:59,99", "12:34,56", "", "n/a", "7", "Ж1,22")
        cells.append(f'<td {reports.MARKER}{time}</td>')
    return generator.pick("", "<html>\r\n", "Жx") + "".join(cells) + generator.pick("", "</html>")


def run_cli(cli, folder, *command, given=b""):
    environment = dict(os.environ, LC_ALL="C", TZ="UTC")
    call = [os.fsencode(part) for part in [cli, "--program-folder", folder, *command]]
    done = subprocess.run(call, input=given, capture_output=True, timeout=20, check=False, env=environment)
    return done.returncode, done.stdout.decode("utf-8", "surrogateescape")


def random_differences(cli, seed, folder, fixed):
    """What differs between the reports on one random program folder and the rules."""
    generator = Generator(random.Random(seed), folder)
    generator.folder_of_user()
    loading = Loading(folder).run()
    template = random_template(generator)
    template_file = os.path.join(folder, "random.ett")
    with open(template_file, "wb") as file:
        file.write(template.encode("utf-8", "surrogateescape"))
    status, text = run_cli(cli, folder, "export-text", "-")
    try:
        if loading.ended:
            raise EndedEarly(loading.error)
        expected = reports.text_report(loading)
        if (status, text) != (0, expected):
            yield f"text report, exit status {status}"
    except EndedEarly:
        if status != 1:
            yield f"text report that cannot be written, exit status {status}"
    status, text = run_cli(cli, folder, "export-html", "--template", template_file, "-")
    if loading.ended:
        if status != 1:
            yield f"template report after a failed loading, exit status {status}"
    elif (status, text) != (0, reports.template_report(loading, reports.template_sections(template), MOMENT)):
        yield f"template report, exit status {status}"
    page = random_page(generator)
    for name, content in (("targets.txt", "old\r\n"), ("targets_old.txt", fixed)):
        with open(os.path.join(folder, name), "wb") as file:
            file.write(content.encode())
    status, _ = run_cli(cli, folder, "update-targets", "--force", "--page", "-", given=page.encode())
    if (status, read(os.path.join(folder, "targets.txt"))) != (0, reports.new_targets(page, fixed)):
        yield f"targets, exit status {status}"


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("sources")
    parser.add_argument("cli")
    parser.add_argument("--count", type=int, default=60)
    parser.add_argument("--seed", type=int, default=1)
    arguments = parser.parse_args()
    faults, files = [], 0
    for path, expected in golden_files(os.path.abspath(arguments.sources)):
        files += 1
        if not os.path.exists(path) or read(path) != expected:
            faults.append(f"{path} is not what the rules say")
    fixed = read(os.path.join(arguments.sources, "data", "targets_old.txt"))
    written = 0
    for seed in range(arguments.seed, arguments.seed + arguments.count):
        with tempfile.TemporaryDirectory(prefix="kavo-oracle-") as folder:
            found = list(random_differences(os.path.abspath(arguments.cli), seed, folder, fixed))
            faults += [f"seed {seed}: {fault}" for fault in found]
            written += 3
    print(*faults[:20], f"{files} golden files and {written} reports, {len(faults)} differ", sep="\n")
    sys.exit(1 if faults else 0)


if __name__ == "__main__":
    main()
