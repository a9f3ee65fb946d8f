#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

"""Fails on a path in a document that leads nowhere: a link, and anything in backquotes that begins like a path from the
project's root. A path may leave out the ending of its sources, and have several, as in ui/x_window.{h,cpp,ui}."""

import pathlib
import re
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
EXAMPLES = {"ui/settings/keys_window.{h,cpp,ui}", "cli/NAME_command.cpp"}  # of files that somebody is going to write


def documents():
    """All documents of the project, named from its root."""
    command = ["git", "ls-files", "-z", "--cached", "--others", "--exclude-standard", "*.md"]
    names = subprocess.run(command, cwd=ROOT, check=True, capture_output=True).stdout.decode().split("\0")
    return [name for name in names if name and (ROOT / name).is_file()]


def tops():
    """What a path from the root can begin with."""
    return {path.name for path in ROOT.iterdir() if path.is_dir() and not re.match(r"build|\.git$", path.name)}


def spread(path):
    """The paths that one with a list in braces stands for."""
    listed = re.fullmatch(r"(.*)\{([^}]*)\}(.*)", path)
    return [listed[1] + part + listed[3] for part in listed[2].split(",")] if listed else [path]


def is_there(path):
    path = path.rstrip("/")
    if (ROOT / path).exists():
        return True
    return any(ROOT.glob(path)) if "*" in path else any(ROOT.glob(f"{path}.*"))


def faults_of(document, beginnings):
    text = (ROOT / document).read_text(encoding="utf-8")
    folder = pathlib.PurePosixPath(document).parent
    for number, line in enumerate(text.splitlines(), start=1):
        for target in re.findall(r"\]\(([^)#\s]+)[^)]*\)", line):
            if not re.match(r"\w+:", target) and not (ROOT / folder / target).exists():
                yield f"{document}:{number}: the link to {target} leads nowhere"
        for path in re.findall(r"`(?:\./)?([\w.*{},/-]+)`", line):
            if "/" not in path or path.split("/")[0] not in beginnings or path in EXAMPLES:
                continue
            for one in spread(path):
                if not is_there(one):
                    yield f"{document}:{number}: there is no {one}"
        for script in re.findall(r"\./([\w./-]+\.sh)\b", line):
            if not (ROOT / script).is_file():
                yield f"{document}:{number}: there is no {script}"


def main():
    beginnings = tops()
    names = documents()
    faults = [fault for name in names for fault in faults_of(name, beginnings)]
    print("\n".join(faults) or f"{len(names)} documents name only what is there")
    sys.exit(1 if faults or not names else 0)


if __name__ == "__main__":
    main()
