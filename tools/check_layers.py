#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

"""Fails on an include that the layer table of docs/architecture.md does not allow, and on a header or source of a
layer's folder that no target builds."""

import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
OUTSIDE = {"tests", "bench", "fuzz", "tools", "packaging"}
GENERATED = {"core/version.h": "kavo_core", "insight/page/page_resources.h": "kavo_insight"}


def read_table():
    """Target to (its layer, the layers it may use, whether it may use Qt)."""
    row = re.compile(r"\| `(\w+)` +\| ((?:`[\w-]+`[ ,]*)+)\| [^|]*\| ([^|]*)\| (yes|no) +\|")
    text = (ROOT / "docs/architecture.md").read_text(encoding="utf-8")
    return {
        target: (layer, set(re.findall(r"`(\w+)`", used)) | {layer}, qt == "yes")
        for layer, targets, used, qt in row.findall(text)
        for target in re.findall(r"`([\w-]+)`", targets)
    }


def targets_of_files():
    """File named from the root to the target that it is built into, as the lists of CMake say."""
    owners = dict(GENERATED)
    call = re.compile(r"(?:add_library|add_executable|target_sources)\(\s*([\w-]+)([^)]*)\)")
    for lists in sorted(ROOT.glob("*/**/CMakeLists.txt")):
        folder = lists.parent.relative_to(ROOT)
        if is_outside(folder):
            continue
        text = re.sub(r"#.*", "", lists.read_text(encoding="utf-8"))
        for target, sources in call.findall(text):
            for name in re.findall(r"[\w/.]+\.(?:cpp|h)\b", sources):
                owners[(folder / name).as_posix()] = target
    return owners


def is_outside(path):
    first = path.parts[0] if path.parts else ""
    return first in OUTSIDE or re.match(r"build|\.", first) is not None


def faults_of(file, table, owners):
    owner = owners.get(file.as_posix())
    if owner not in table:
        yield f"{file}: " + (f"no layer has the target {owner}" if owner else "no target builds it")
        return
    layer, used, may_use_qt = table[owner]
    text = (ROOT / file).read_text(encoding="utf-8")
    for number, line in enumerate(text.splitlines(), start=1):
        include = re.match(r'\s*#\s*include\s*([<"])([^">]+)', line)
        if not include:
            continue
        kind, name = include.groups()
        if re.match(r"Q[A-Z]|Qt|q[a-z]+\.h$", name) and not may_use_qt:
            yield f"{file}:{number}: {layer} is built without Qt"
        if kind == '"' and "/" in name:
            target = owners.get(name)
            if target not in table or table[target][0] not in used:
                yield f"{file}:{number}: {layer} may not use {name}"


def main():
    table = read_table()
    if len(table) < 5:
        sys.exit("docs/architecture.md: the layer table was not found")
    owners = targets_of_files()
    sources = [
        path.relative_to(ROOT)
        for path in sorted(ROOT.glob("*/**/*"))
        if path.suffix in (".h", ".cpp") and not is_outside(path.relative_to(ROOT))
    ]
    faults = [fault for file in sources for fault in faults_of(file, table, owners)]
    print("\n".join(faults) or f"{len(sources)} files keep to the layers")
    sys.exit(1 if faults else 0)


if __name__ == "__main__":
    main()
