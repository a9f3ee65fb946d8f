# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

"""Program folders with a season of results to look back on."""

import os
import pathlib
import random
import re
import shutil
import subprocess

SOURCES = pathlib.Path(__file__).resolve().parents[2]
TIME = re.compile(rb"(?m)^(\d\d):(\d\d):(\d\d)")
HARD_NAMES = "<script>alert(1)</script>\r\nBartholomew \"the\" Unstoppable & Sons' <b>Dust</b> Devils\r\n\u202eКонстантинопольский\r\n"


class Season:
    """A copy of the demo in a folder of its own, with its own place for what is remembered."""

    def __init__(self, cli, folder, states, hard=False):
        self._cli = cli
        self._folder = folder / "program"
        shutil.copytree(SOURCES / "data" / "demo", self._folder)
        for file in (SOURCES / "data").glob("*.txt"):
            shutil.copy(file, self._folder)
        if hard:
            (self._folder / "Marek" / "names.dat").write_text(HARD_NAMES, encoding="utf-8", newline="")
        self._environment = dict(os.environ, XDG_STATE_HOME=str(folder / "state"), KAVO_HISTORY="", TZ="UTC")
        self._remember(folder, states)

    def run(self, *arguments):
        command = [self._cli, "--program-folder", self._folder, "--user", "Marek", *arguments]
        done = subprocess.run(command, capture_output=True, timeout=60, check=True, env=self._environment)
        return done.stdout

    def _remember(self, folder, states):
        """Slower and slower times, the further back in the year."""
        pick = random.Random(7)
        self.run("history", "save")
        newest = next((folder / "state").rglob("2*Z.txt"))
        text = newest.read_bytes()
        for day in range(1, states):
            text = TIME.sub(lambda match: slower(match, pick), text)
            name = f"{2025 - day // 336}{12 - day % 336 // 28:02}{28 - day % 28:02}T120000Z.txt"
            newest.with_name(name).write_bytes(text)


def slower(match, pick):
    if pick.random() > 0.15:
        return match.group(0)
    minutes, seconds, hundredths = map(int, match.groups())
    total = min(6000 * minutes + 100 * seconds + hundredths + pick.randrange(1, 150), 599999)
    return b"%02d:%02d:%02d" % (total // 6000, total // 100 % 60, total % 100)
