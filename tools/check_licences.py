#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

"""Fails on a file whose licence nobody can tell: one without the two SPDX lines that no pattern of REUSE.toml covers,
one whose licence has no text in LICENSES/, and a text of no use. With --fix the missing lines are written."""

import pathlib
import re
import subprocess
import sys
import tomllib

ROOT = pathlib.Path(__file__).resolve().parent.parent
COPYRIGHT = "SPDX-FileCopyrightText"
LICENCE = "SPDX-License-Identifier"
LINES = (f"{COPYRIGHT}: 2026 Kavo Timing contributors", f"{LICENCE}: GPL-3.0-or-later")
HEAD = 1000  # bytes among which the two lines stand

SLASHES = {".cpp", ".h", ".rc"}
HASHES = {".cmake", ".desktop", ".py", ".sh", ".supp", ".toml", ".txt", ".yaml", ".yml"}
HASHES_BY_NAME = {".clang-format", ".clang-tidy", ".gitattributes", ".gitignore"}
ANGLES = {".html", ".manifest", ".svg", ".xml"}


def project_files():
    """All files that belong to the project or are about to, but the texts of the licences."""
    command = ["git", "ls-files", "-z", "--cached", "--others", "--exclude-standard"]
    names = subprocess.run(command, cwd=ROOT, check=True, capture_output=True).stdout.decode().split("\0")
    return [name for name in sorted(set(names)) if (ROOT / name).is_file() and not name.startswith("LICENSES/")]


def pattern_of(glob):
    """A star stands for anything within a folder, two for anything."""
    parts = re.split(r"(\*\*|\*)", glob)
    return re.compile("".join({"**": ".*", "*": "[^/]*"}.get(part, re.escape(part)) for part in parts))


def annotations():
    """(glob, its licence) as REUSE.toml lists them."""
    table = tomllib.loads((ROOT / "REUSE.toml").read_text(encoding="utf-8"))
    for entry in table["annotations"]:
        if not entry.get(COPYRIGHT):
            sys.exit(f"REUSE.toml: {entry['path']} has no {COPYRIGHT}")
        for glob in entry["path"]:
            yield glob, entry[LICENCE]


def marked_licence(name):
    """The licence that the file itself tells, if it has both lines."""
    head = (ROOT / name).read_bytes()[:HEAD].decode("utf-8", "replace")
    told = re.search(LICENCE + r": (\S+)", head)
    return told.group(1) if told and COPYRIGHT + ": " in head else None


def comment_of(name, content):
    """The two lines as a comment of the file's language; None where there is no telling."""
    path = pathlib.PurePath(name.removesuffix(".in"))
    if path.suffix in SLASHES:
        return "".join(f"// {line}\n" for line in LINES)
    if path.suffix in HASHES or path.name in HASHES_BY_NAME or content.startswith(b"#!"):
        return "".join(f"# {line}\n" for line in LINES)
    if path.suffix == ".1":
        return "".join(f'.\\" {line}\n' for line in LINES)
    if path.suffix in ANGLES:
        return "<!--\n" + "".join(f"{line}\n" for line in LINES) + "-->\n"
    return None


def fix(name):
    """Writes the lines where the file begins, behind what must be its first line; returns whether it could."""
    content = (ROOT / name).read_bytes()
    comment = comment_of(name, content)
    if comment is None or b"\r" in content:
        return False
    first, rest = re.fullmatch(rb"((?:#!|<\?xml)[^\n]*\n)?(.*)", content, re.DOTALL).groups()
    gap = b"\n" if rest and comment[0] in "/#" and not rest.startswith(b"\n") else b""
    (ROOT / name).write_bytes((first or b"") + comment.encode() + gap + rest)
    return True


def main():
    fixes = sys.argv[1:] == ["--fix"]
    if sys.argv[1:] and not fixes:
        sys.exit("Usage: tools/check_licences.py [--fix]")
    patterns = [(pattern_of(glob), licence) for glob, licence in annotations()]
    texts = {path.stem for path in (ROOT / "LICENSES").iterdir()}
    faults, used = [], set()
    for name in project_files():
        covering = next((licence for pattern, licence in patterns if pattern.fullmatch(name)), None)
        licence = marked_licence(name) or covering
        if licence is None and fixes and fix(name):
            licence = marked_licence(name)
        if licence is None:
            faults.append(f"{name}: no licence; tools/check_licences.py --fix writes it, or REUSE.toml covers the file")
        elif licence not in texts:
            faults.append(f"{name}: LICENSES/{licence}.txt is missing")
        used.add(licence)
    faults += [f"LICENSES/{text}.txt: no file has this licence" for text in sorted(texts - used)]
    print("\n".join(faults) or "every file has a licence")
    sys.exit(1 if faults else 0)


if __name__ == "__main__":
    main()
