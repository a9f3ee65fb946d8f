#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

"""Turns the user guide (docs/guide.md and every page and picture that it leads to) into HTML pages for a browser.

Usage: guide.py FOLDER

The pages keep their places below FOLDER, which begins with guide.html. Needs cmark-gfm. Fails on a link that leads
nowhere.
"""

import html
import pathlib
import posixpath
import re
import shutil
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
DOCS = ROOT / "docs"
FIRST = "guide.md"
# Files that lie elsewhere in the sources, such as examples.
ELSEWHERE = "files"

PAGE = """<!DOCTYPE html>
<html lang="en">
<head>
<meta charset="utf-8">
<meta name="viewport" content="width=device-width, initial-scale=1">
<title>{title}</title>
<style>
:root {{ color-scheme: light dark; }}
body {{ max-width: 50em; margin: 0 auto; padding: 1em; font: 1em/1.5 sans-serif; }}
img {{ max-width: 100%; height: auto; }}
table {{ border-collapse: collapse; display: block; overflow-x: auto; }}
th, td {{ border: 1px solid #888; padding: .25em .6em; text-align: left; vertical-align: top; }}
pre {{ overflow-x: auto; padding: .6em; border: 1px solid #888; }}
code {{ overflow-wrap: anywhere; }}
pre code {{ overflow-wrap: normal; }}
</style>
</head>
<body>
{navigation}<main>
{body}</main>
</body>
</html>
"""


def anchor_of(heading, used):
    """The name that a heading is linked by: its words in small letters, a number behind it when it comes again."""
    text = html.unescape(re.sub(r"<[^>]+>", "", heading)).strip().lower()
    name = re.sub(r"\s", "-", re.sub(r"[^\w\s-]", "", text))
    number = used.setdefault(name, 0)
    used[name] += 1
    return name if number == 0 else f"{name}-{number}"


def with_anchors(body, anchors):
    used = {}

    def named(match):
        anchor = anchor_of(match[2], used)
        anchors.add(anchor)
        return f'<h{match[1]} id="{html.escape(anchor)}">{match[2]}</h{match[1]}>'

    return re.sub(r"<h([1-6])>(.*?)</h\1>", named, body, flags=re.DOTALL)


class Guide:
    def __init__(self, folder):
        self.folder = folder
        self.waiting = [FIRST]
        self.anchors = {}  # page to the anchors in it
        self.links = []  # (page, page and anchor it links to)
        self.faults = []

    def write(self):
        done = set()
        while self.waiting:
            page = self.waiting.pop(0)
            if page not in done:
                done.add(page)
                self.write_page(page)
        for page, target, anchor in self.links:
            if anchor and anchor not in self.anchors.get(target, ()):
                self.faults.append(f"docs/{page}: {target} has no heading {anchor}")

    def write_page(self, page):
        command = ["cmark-gfm", "-e", "table", "-e", "autolink", "-e", "strikethrough", str(DOCS / page)]
        body = subprocess.run(command, check=True, capture_output=True).stdout.decode("utf-8")
        anchors = self.anchors.setdefault(page, set())
        body = with_anchors(body, anchors)
        body = re.sub(r'\b(href|src)="([^"]*)"', lambda match: self.linked(page, match), body)
        title = re.search(r"<h1[^>]*>(.*?)</h1>", body)
        title = html.unescape(re.sub(r"<[^>]+>", "", title[1])) if title else page
        back = posixpath.relpath("guide.html", posixpath.dirname(page) or ".")
        navigation = "" if page == FIRST else f'<nav><a href="{back}">User guide</a></nav>\n'
        if page != FIRST:
            title += " - Kavo Timing"
        text = PAGE.format(title=html.escape(title), navigation=navigation, body=body)
        target = self.folder / page.replace(".md", ".html")
        target.parent.mkdir(parents=True, exist_ok=True)
        target.write_text(text, encoding="utf-8", newline="\n")

    def linked(self, page, match):
        """The attribute as the page in HTML needs it; what it leads to will be there, too."""
        link = html.unescape(match[2])
        if re.match(r"[a-z]+:", link):
            return match[0]
        path, _, anchor = link.partition("#")
        target = posixpath.normpath(posixpath.join(posixpath.dirname(page), path)) if path else page
        if not (DOCS / target).is_file():
            self.faults.append(f"docs/{page}: there is no {link}")
            return match[0]
        if target.endswith(".md") and not target.startswith("../"):
            self.waiting.append(target)
            self.links.append((page, target, anchor))
            target = target.replace(".md", ".html")
        else:
            target = self.copied(target)
        new = posixpath.relpath(target, posixpath.dirname(page) or ".")
        return f'{match[1]}="{html.escape(new + ("#" + anchor if anchor else ""))}"'

    def copied(self, target):
        place = f"{ELSEWHERE}/{posixpath.basename(target)}" if target.startswith("../") else target
        (self.folder / place).parent.mkdir(parents=True, exist_ok=True)
        shutil.copyfile(DOCS / target, self.folder / place)
        return place


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    guide = Guide(pathlib.Path(sys.argv[1]))
    guide.write()
    if guide.faults:
        sys.exit("\n".join(guide.faults))


if __name__ == "__main__":
    main()
