#!/usr/bin/env python3
"""Fails on an include that the layer table of docs/architecture.md does not allow."""

import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
OUTSIDE = {"tests", "bench", "fuzz", "tools"}
SHARED = ("reports", "updater")  # folders in which writers and windows lie side by side


def read_table():
    """Layer name to (layers it may use, whether it may use Qt)."""
    row = re.compile(r"\| `(\w+)` +\| `[^|]*\| ([^|]*)\| (yes|no) +\|")
    text = (ROOT / "docs/architecture.md").read_text(encoding="utf-8")
    return {name: (set(re.findall(r"`(\w+)`", used)) | {name}, qt == "yes") for name, used, qt in row.findall(text)}


def windows_of(folder):
    """Stems of the files that the folder's own CMakeLists.txt builds."""
    lists = ROOT / folder / "CMakeLists.txt"
    text = re.sub(r"#.*", "", lists.read_text(encoding="utf-8")) if lists.exists() else ""
    return {pathlib.PurePath(name).stem for name in re.findall(r"[\w/]+\.(?:cpp|h)\b", text)}


def layer_of(path, windows):
    """The layer of a file named from the root, None outside of the layers."""
    folder = path.parts[0]
    if folder in SHARED:
        return "windows" if len(path.parts) == 2 and path.stem in windows[folder] else "writers"
    return None if folder in OUTSIDE else folder


def faults_of(file, table, windows):
    layer = layer_of(file, windows)
    if layer is None:
        return
    if layer not in table:
        yield f"{file}: no layer has this folder"
        return
    used, may_use_qt = table[layer]
    text = (ROOT / file).read_text(encoding="utf-8")
    for number, line in enumerate(text.splitlines(), start=1):
        include = re.match(r'\s*#\s*include\s*([<"])([^">]+)', line)
        if not include:
            continue
        kind, name = include.groups()
        if re.match(r"Q[A-Z]|Qt|q[a-z]+\.h$", name) and not may_use_qt:
            yield f"{file}:{number}: {layer} is built without Qt"
        if kind == '"' and "/" in name:
            target = layer_of(pathlib.PurePath(name), windows)
            if target not in used:
                yield f"{file}:{number}: {layer} may not use {target or name}"


def main():
    table = read_table()
    if len(table) < 5:
        sys.exit("docs/architecture.md: the layer table was not found")
    windows = {folder: windows_of(folder) for folder in SHARED}
    sources = [
        path.relative_to(ROOT)
        for path in sorted(ROOT.glob("*/**/*"))
        if path.suffix in (".h", ".cpp") and not re.match(r"build|\.", path.relative_to(ROOT).parts[0])
    ]
    faults = [fault for file in sources for fault in faults_of(file, table, windows)]
    print("\n".join(faults) or f"{len(sources)} files keep to the layers")
    sys.exit(1 if faults else 0)


if __name__ == "__main__":
    main()
