#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

"""Prints the desktop entry: kavo-timing.desktop, with an action for the web page of everything as soon as the command
line has the command that writes it.

Usage: desktop_entry.py PROGRAMS.JSON
"""

import json
import pathlib
import sys

ENTRY = pathlib.Path(__file__).resolve().parents[1] / "kavo-timing.desktop"
COMMAND = "dashboard"

ACTION = f"""Actions=Dashboard;

[Desktop Action Dashboard]
Name=Dashboard
Exec=kavo-timing-cli {COMMAND} --open
"""


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    programs = json.loads(pathlib.Path(sys.argv[1]).read_text(encoding="utf-8"))
    commands = [command["name"] for command in programs["kavo-timing-cli"]["commands"]]
    sys.stdout.reconfigure(encoding="utf-8", newline="\n")
    sys.stdout.write(ENTRY.read_text(encoding="utf-8") + (ACTION if COMMAND in commands else ""))


if __name__ == "__main__":
    main()
