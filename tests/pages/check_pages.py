#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

"""Looks at the web pages that the program's templates make, in a real browser and at several widths.

Usage: check_pages.py CLI BROWSER PICTURES
Saves pictures of the pages, light and dark, in the folder PICTURES. Fails when a text is cut, hidden, touches another one
or is hard to read.
"""

import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

from browser import measure

SOURCES = pathlib.Path(__file__).resolve().parents[2]
TEMPLATES = {"light": ["plain-table", "responsive"], "dark": ["responsive"]}  # by what the reader's system asks for
WIDTHS = [390, 768, 1000]
LEAST_GAP = 8  # pixels between two texts of a line
LEAST_CONTRAST = 4.5
LONG_NAMES = "Bartholomew the Unstoppable\r\nКонстантин Константинопольский\r\nDustDevilsOfTheFarNorthernHills\r\n"
LONG_LEVEL = "Level 17, The Crooked Chimney Behind The Second Old Sawmill"


def demo_folder(folder):
    shutil.copytree(SOURCES / "data" / "demo", folder)
    for file in (SOURCES / "data").glob("*.txt"):
        shutil.copy(file, folder)
    return folder


def hard_folder(folder):
    """The demo with long names, a long level and totals in hours."""
    demo_folder(folder)
    (folder / "Marek" / "names.dat").write_text(LONG_NAMES, encoding="utf-8", newline="")
    statistics = folder / "game" / "stats.txt"
    text = statistics.read_bytes()
    text = re.sub(rb"Level 17,[^\r]*", LONG_LEVEL.encode(), text, count=1)
    statistics.write_bytes(re.sub(rb"\r\n00:", b"\r\n01:", text))
    return folder


def export(cli, folder, template):
    command = [cli, "--program-folder", folder, "--user", "Marek", "export-html", "--template",
               SOURCES / "data" / "templates" / f"{template}.ett", "-"]
    return subprocess.run(command, capture_output=True, timeout=20, check=True).stdout.decode("utf-8")


def faults(page, seen):
    """What is wrong with a page as it was seen at one width."""
    found = []
    if seen["pageWidth"] > seen["width"]:
        found.append(f"the page is {seen['pageWidth']} pixels wide")
    for fault in ("cut", "hidden", "touching"):
        found += [f"{fault}: {text}" for text in sorted(set(seen[fault]))]
    if seen["gap"] < LEAST_GAP:
        found.append(f"only {seen['gap']} pixels between two texts")
    if seen["contrast"] < LEAST_CONTRAST:
        found.append(f"a contrast of only {seen['contrast']:.2f}")
    levels = set(re.findall(r'<th scope="row">(\d+, [^<]+)</th>', page))
    if len(levels) != 54 or not levels <= set(seen["texts"]):
        found.append(f"{len(levels & set(seen['texts']))} of 54 levels are seen")
    return found


def main():
    cli, browser, pictures = sys.argv[1:]
    pathlib.Path(pictures).mkdir(parents=True, exist_ok=True)
    failed = False
    with tempfile.TemporaryDirectory() as temporary:
        folders = {"demo": demo_folder(pathlib.Path(temporary, "demo")),
                   "hard": hard_folder(pathlib.Path(temporary, "hard"))}
        for scheme, templates in TEMPLATES.items():
            cases = [(template, name) for template in templates for name in folders]
            pages = [export(cli, folders[name], template) for template, name in cases]
            picture = pathlib.Path(pictures, f"{scheme}.png")
            for case, page, widths in zip(cases, pages, measure(browser, pages, WIDTHS, scheme == "dark", picture=picture)):
                for seen in widths:
                    for fault in faults(page, seen):
                        failed = True
                        print(f"{scheme} {' '.join(case)} at {seen['width']} pixels: {fault}")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
