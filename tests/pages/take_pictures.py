#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

"""Takes the pictures of web pages for the user guide: of the templates, and of the dashboard.

Usage: take_pictures.py CLI BROWSER FOLDER
"""

import pathlib
import sys
import tempfile

from browser import measure
from devtools import Browser
from seasons import Season

PAGES = pathlib.Path(__file__).resolve().parents[1] / "golden"
PICTURES = {  # name: page, widths, height, dark
    "template-plain-table": ("marek-plain-table.html", [1000], 560, False),
    "template-responsive-light": ("marek-responsive.html", [1000, 390], 600, False),
    "template-responsive-dark": ("marek-responsive.html", [1000, 390], 600, True),
}


OVERLAY = "marek-stream-overlay.html"
OVERLAY_SIZE = (384, 222)
GAME = "<style>html { background: linear-gradient(120deg, #3f7a3a, #8a7446) }</style>"  # what the overlay lies over
DASHBOARD_SIZE = (1100, 2247)
DASHBOARD_STATES = 30


def take_template_pictures(browser, folder):
    for name, (page, widths, height, dark) in PICTURES.items():
        text = (PAGES / page).read_text(encoding="utf-8")
        measure(browser, [text], widths, dark, height, folder / (name + ".png"))


def take_picture(browser, page, size, picture):
    browser.show(*size)
    browser.open(page.as_uri())
    browser.picture(picture, *size)


def take_result_pictures(cli, program, folder):
    with tempfile.TemporaryDirectory() as temporary, Browser(program) as browser:
        overlay = pathlib.Path(temporary, "overlay.html")
        text = (PAGES / OVERLAY).read_text(encoding="utf-8")
        overlay.write_text(text.replace("</head>", GAME + "</head>"), encoding="utf-8")
        take_picture(browser, overlay, OVERLAY_SIZE, folder / "template-stream-overlay.png")
        dashboard = pathlib.Path(temporary, "dashboard.html")
        dashboard.write_bytes(Season(cli, pathlib.Path(temporary), DASHBOARD_STATES).run("dashboard", "--output", "-"))
        take_picture(browser, dashboard, DASHBOARD_SIZE, folder / "dashboard.png")


def main():
    cli, browser, folder = sys.argv[1:]
    folder = pathlib.Path(folder).resolve()
    take_template_pictures(browser, folder)
    take_result_pictures(cli, browser, folder)


if __name__ == "__main__":
    main()
