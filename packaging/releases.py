#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

"""What the packages say about the versions: taken from CMakeLists.txt (the version), data/history.txt (what is new)
and packaging/release_dates.txt (when).

Usage: releases.py version | epoch | notes | changelog | metainfo

  version    the present version, 2.1.73
  epoch      its release in seconds since 1970: the time that everything in its packages bears
  notes      what is new in it
  changelog  debian/changelog, all releases
  metainfo   the AppStream metadata with all releases
"""

import datetime
import pathlib
import re
import sys
from xml.sax.saxutils import escape

ROOT = pathlib.Path(__file__).resolve().parent.parent
MAINTAINER = "Kavo Timing <kavo-timing@example.org>"
# Sorts below the "-1" of a distribution that packages the program itself.
DEBIAN_REVISION = "1~kavo1"


class Release:
    def __init__(self, version, date, news):
        self.version = version
        self.date = date
        self.news = news

    def changelog(self):
        items = "\n".join(f"  * {text}" for text in self.news)
        date = self.date.strftime("%a, %d %b %Y %H:%M:%S +0000")
        return (
            f"kavo-timing ({self.version}-{DEBIAN_REVISION}) unstable; urgency=medium\n\n{items}\n\n"
            f" -- {MAINTAINER}  {date}\n"
        )

    def metainfo(self):
        items = "".join(f"        <li>{escape(text)}</li>\n" for text in self.news)
        return (
            f'    <release version="{self.version}" date="{self.date:%Y-%m-%d}">\n'
            f"      <description>\n       <ul>\n{items}       </ul>\n      </description>\n    </release>\n"
        )

    def notes(self):
        return f"Kavo Timing {self.version}, {self.date:%Y-%m-%d}\n\n" + "".join(f"- {text}\n" for text in self.news)


def read_version():
    text = (ROOT / "CMakeLists.txt").read_text(encoding="utf-8")
    return re.search(r"^project\(\w+ VERSION (\d+\.\d+\.\d+) ", text, re.MULTILINE).group(1)


def read_dates():
    dates = {}
    for line in (ROOT / "packaging/release_dates.txt").read_text(encoding="utf-8").splitlines():
        if line and not line.startswith("#"):
            version, date = line.split()
            dates[version] = datetime.datetime.strptime(date, "%Y-%m-%d").replace(tzinfo=datetime.timezone.utc)
    return dates


def read_history():
    """Pairs of version and news, in the order of the file."""
    history = []
    for line in (ROOT / "data/history.txt").read_text(encoding="utf-8-sig").splitlines():
        heading = re.fullmatch(r"Version (\d+)\.(\d+)(?: build (\d+))?", line)
        item = re.fullmatch(r" [-+*] (.+)", line)
        if heading:
            history.append((".".join(part or "0" for part in heading.groups()), []))
        elif item and history:
            history[-1][1].append(item.group(1))
        elif line.strip() and history:
            if history[-1][1]:
                history[-1][1][-1] += " " + line.strip()
            else:
                history[-1][1].append(line.strip())
    return history


def read_releases():
    """The released versions, the newest first. Ends with a message when the three files do not agree."""
    version, dates, history = read_version(), read_dates(), read_history()
    if not history or history[0][0] != version:
        sys.exit(f"data/history.txt does not begin with what is new in version {version}")
    for named, news in history:
        if named not in dates:
            sys.exit(f"packaging/release_dates.txt has no date for version {named}")
        if not news:
            sys.exit(f"data/history.txt says nothing about version {named}")
    return [Release(named, dates[named], news) for named, news in history]


def metainfo(releases):
    text = (ROOT / "packaging/org.example.kavotiming.metainfo.xml.in").read_text(encoding="utf-8")
    return text.replace("@RELEASES@", "".join(release.metainfo() for release in releases))


def main():
    forms = {
        "version": lambda releases: releases[0].version + "\n",
        "epoch": lambda releases: f"{int(releases[0].date.timestamp())}\n",
        "notes": lambda releases: releases[0].notes(),
        "changelog": lambda releases: "\n".join(release.changelog() for release in releases),
        "metainfo": metainfo,
    }
    if len(sys.argv) != 2 or sys.argv[1] not in forms:
        sys.exit(__doc__)
    sys.stdout.reconfigure(encoding="utf-8", newline="\n")
    sys.stdout.write(forms[sys.argv[1]](read_releases()))


if __name__ == "__main__":
    main()
