#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

"""Looks at the dashboard and at the page of a club in a real browser, as a phone, a tablet and a window show them.

Usage: check_dashboard.py CLI BROWSER TIDY PICTURES
Saves pictures in the folder PICTURES. Fails when a page sends a request, says something on the console, does not fit,
is hard to read, is not sorted by keyboard, or is no valid HTML.
"""

import pathlib
import subprocess
import sys
import tempfile

from devtools import Browser
from seasons import Season

WIDTHS = [360, 768, 1400]
PICTURES = [(360, False), (1400, False), (1400, True)]  # width, and whether it is dark
PICTURE_HEIGHT = 2400
LEAST_CONTRAST = 4.5
LARGEST_PAGE = 250_000  # bytes

# The widths of what sticks out, texts that are cut, and the least contrast of a text.
MEASURE = """
(() => {
  const luminance = colour => colour.match(/[0-9.]+/g).slice(0, 3).map(part => part / 255)
    .map(part => part <= 0.04045 ? part / 12.92 : Math.pow((part + 0.055) / 1.055, 2.4))
    .reduce((sum, part, place) => sum + part * [0.2126, 0.7152, 0.0722][place], 0);
  const background = luminance(getComputedStyle(document.documentElement).backgroundColor);
  const walker = document.createTreeWalker(document.body, NodeFilter.SHOW_TEXT);
  const outside = [];
  let contrast = 21;
  let texts = 0;
  for (let node = walker.nextNode(); node; node = walker.nextNode()) {
    if (node.textContent.trim() === '' || node.parentElement.closest('script, svg')) continue;
    const range = document.createRange();
    range.selectNodeContents(node);
    for (const box of range.getClientRects()) {
      if (box.width === 0) continue;
      ++texts;
      if (box.left < -0.6 || box.right > innerWidth + 0.6) outside.push(node.textContent.trim());
      const own = luminance(getComputedStyle(node.parentElement).color);
      contrast = Math.min(contrast, (Math.max(own, background) + 0.05) / (Math.min(own, background) + 0.05));
    }
  }
  for (const drawing of document.querySelectorAll('svg')) {
    const box = drawing.getBoundingClientRect();
    if (box.right > innerWidth + 0.6) outside.push(drawing.querySelector('title').textContent);
    if (drawing.querySelector('title') === null) outside.push('a drawing without a title');
  }
  return { pageWidth: document.documentElement.scrollWidth, width: innerWidth, outside, contrast, texts };
})()
"""
FOCUSED = "document.activeElement.closest('th') && document.activeElement.textContent"
SORTED = "document.activeElement.closest('th').getAttribute('aria-sort')"
VALUES = ("Array.from(document.activeElement.closest('table').tBodies[0].rows, row => "
          "row.cells[document.activeElement.closest('th').cellIndex].dataset.value)")


class Look:
    """One page in the browser, and what is wrong with it."""

    def __init__(self, browser, name, file, pictures):
        self.faults = []
        self._browser = browser
        self._name = name
        self._pictures = pictures
        self._address = file.as_uri()
        browser.show(1400)
        browser.open(self._address)

    def fault(self, text):
        self.faults.append(f"{self._name}: {text}")

    def at_all_widths(self):
        for dark in (False, True):
            for width in WIDTHS:
                self._browser.show(width, dark=dark)
                shade = "dark" if dark else "light"
                seen = self._browser.evaluate(MEASURE)
                if (width, dark) in PICTURES:
                    self._browser.picture(self._pictures / f"{self._name}-{shade}-{width}.png", width, PICTURE_HEIGHT)
                if seen["pageWidth"] > width:
                    self.fault(f"{seen['pageWidth']} pixels wide at {width}")
                for text in sorted(set(seen["outside"])):
                    self.fault(f"outside at {width} pixels: {text}")
                if seen["contrast"] < LEAST_CONTRAST:
                    self.fault(f"a contrast of only {seen['contrast']:.2f} ({shade})")
                if seen["texts"] < 100:
                    self.fault(f"only {seen['texts']} texts at {width} pixels")

    def by_keyboard(self, heading):
        self._browser.show(1400)
        self._browser.evaluate("document.activeElement.blur()")
        for _ in range(200):
            self._browser.press("Tab")
            if self._browser.evaluate(FOCUSED) == heading:
                break
        else:
            self.fault(f"the heading {heading} cannot be reached by keyboard")
            return
        for key, direction in (("Enter", "ascending"), (" ", "descending")):
            self._browser.press(key)
            if self._browser.evaluate(SORTED) != direction:
                self.fault(f"{heading} is not marked as {direction}")
            values = [float(value) for value in self._browser.evaluate(VALUES) if value != ""]
            if values != sorted(values, reverse=direction == "descending") or len(set(values)) < 2:
                self.fault(f"not sorted by {heading}, {direction}: {values}")

    def at_the_end(self):
        self._browser.show(794, 1123, media="print")
        seen = self._browser.evaluate(MEASURE)
        if seen["pageWidth"] > seen["width"] or seen["outside"]:
            self.fault(f"does not fit on paper: {seen['pageWidth']} pixels, {seen['outside'][:3]}")
        self.faults += [f"{self._name} on the console: {message}" for message in self._browser.messages()]
        foreign = [address for address in self._browser.requests()
                   if address != self._address and not address.startswith("data:")]
        self.faults += [f"{self._name} requests {address}" for address in foreign]


def validity_faults(tidy, file):
    done = subprocess.run([tidy, "-quiet", "-errors", "--drop-empty-elements", "no", file], capture_output=True,
                          timeout=20, check=False, text=True)
    return [f"{file.name}: {line}" for line in done.stderr.splitlines()]


def write_pages(cli, folder):
    """The pages by name, and the heading by which each is sorted."""
    demo = Season(cli, folder / "demo", 30)
    hard = Season(cli, folder / "hard", 400, hard=True)
    first = Season(cli, folder / "first", 1)
    pages = {"dashboard": (demo.run("dashboard", "--output", "-"), "Difference"),
             "hard": (hard.run("dashboard", "--output", "-"), "Over time"),
             "first": (first.run("dashboard", "--output", "-"), "To the next grade"),
             "club": (demo.run("club", folder / "demo" / "program" / "game", folder / "demo" / "program" / "friend",
                               "--html", "-"), "Levels won")}
    for name, (page, heading) in pages.items():
        file = folder / f"{name}.html"
        file.write_bytes(page)
        yield name, file, heading


def main():
    cli, browser_program, tidy, pictures = sys.argv[1:]
    pictures = pathlib.Path(pictures)
    pictures.mkdir(parents=True, exist_ok=True)
    faults = []
    with tempfile.TemporaryDirectory() as temporary, Browser(browser_program) as browser:
        for name, file, heading in write_pages(cli, pathlib.Path(temporary)):
            size = file.stat().st_size
            if size > LARGEST_PAGE:
                faults.append(f"{name}: {size} bytes")
            faults += validity_faults(tidy, file)
            look = Look(browser, name, file, pictures)
            look.at_all_widths()
            look.by_keyboard(heading)
            look.at_the_end()
            faults += look.faults
    print("\n".join(faults))
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
