#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

"""Takes the pictures of the templates' pages for the user guide.

Usage: take_pictures.py BROWSER FOLDER
"""

import pathlib
import sys

from browser import measure

PAGES = pathlib.Path(__file__).resolve().parents[1] / "golden"
PICTURES = {  # name: page, widths, height, dark
    "template-plain-table": ("marek-plain-table.html", [1000], 560, False),
    "template-responsive-light": ("marek-responsive.html", [1000, 390], 600, False),
    "template-responsive-dark": ("marek-responsive.html", [1000, 390], 600, True),
}


def main():
    browser, folder = sys.argv[1:]
    for name, (page, widths, height, dark) in PICTURES.items():
        text = (PAGES / page).read_text(encoding="utf-8")
        measure(browser, [text], widths, dark, height, pathlib.Path(folder, name + ".png").resolve())


if __name__ == "__main__":
    main()
