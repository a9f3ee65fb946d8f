#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

"""Fails when a window's control table (in its header), its .ui file, its wire() and docs/windows.md do not tell the
same: a control that is named and not there, one to use that nobody names, a connection that does not say what its
control is for, a window without a row or with another class, caption or file."""

import pathlib
import re
import sys
import xml.etree.ElementTree

ROOT = pathlib.Path(__file__).resolve().parent.parent
FOLDERS = ("ui", "reports", "updater")
USED = ("QPushButton", "QToolButton", "QLineEdit", "QSpinBox", "QCheckBox", "QRadioButton", "QComboBox", "QListWidget",
        "QTreeView", "QPlainTextEdit", "QProgressBar", "kavo::LinkLabel", "kavo::Swatch")
CONTROL = r"[A-Za-z]+\w*"


def spread(cell):
    """The controls that the first cell of a row names: "A, B" or "A_0 to A_6"."""
    for part in re.split(r",\s*", cell.strip()):
        ends = re.fullmatch(r"(\w*?)(\d+) to \1(\d+)", part)
        if ends:
            yield from (f"{ends[1]}{number}" for number in range(int(ends[2]), int(ends[3]) + 1))
        elif part:
            yield part


def table_of(header):
    """(controls named in the first column, all words of the table)."""
    rows = re.findall(r"^/// \| ([^|]*)\|(.*)\|$", header, re.MULTILINE)
    rows = [row for row in rows if row[0].strip() != "control" and "---" not in row[0]]
    controls = [name for cell, _ in rows for name in spread(cell)]
    return controls, set(controls) | {word for _, text in rows for word in re.findall(CONTROL, text)}


def controls_of(ui):
    """Name to class, of all widgets."""
    return {widget.get("name"): widget.get("class") for widget in ui.iter("widget")}


def text_of(ui, name):
    window = ui.find("widget")
    found = window.find(f"property[@name='{name}']/string")
    return "" if found is None else found.text


def wiring_faults(path, source):
    """The lines of wire() that connect a control with a procedure, and no more."""
    wire = re.search(r"::wire\(\)\n{(.*?)^}", source, re.MULTILINE | re.DOTALL)
    for line in wire[1].splitlines() if wire else ():
        if re.fullmatch(r"    kavo::on\(.*&\w+::\w+\);", line):
            yield f"{path}: no meaning of the control at the end of: {line.strip()}"


def window_faults(path, rows):
    """Of one window, told by its .ui file."""
    ui = xml.etree.ElementTree.parse(ROOT / path).getroot()
    base = path.removesuffix(".ui")
    header = (ROOT / f"{base}.h").read_text(encoding="utf-8")
    source = (ROOT / f"{base}.cpp").read_text(encoding="utf-8")
    there = controls_of(ui)
    named, mentioned = table_of(header)
    for name in named:
        if name not in there and not re.search(rf'\b{name}\b.*;', header) and f'"{name}"' not in source:
            yield f"{base}.h: the table names {name}, which is not in {path}"
    for name, kind in there.items():
        if kind in USED and name not in mentioned:
            yield f"{base}.h: the table does not name {name}, a {kind}"
    yield from wiring_faults(f"{base}.cpp", source)
    row = rows.get(base)
    if row is None:
        yield f"docs/windows.md: no row has the file {base}"
        return
    class_name, caption = row
    if class_name != ui.find("class").text:
        yield f"docs/windows.md: {base} is of the class {ui.find('class').text}"
    shown = re.match(r'"([^"]*)"', caption)
    title = text_of(ui, "windowTitle")
    if title and (shown is None or not shown[1].startswith(title)):
        yield f'docs/windows.md: {base} has the caption "{title}"'


def main():
    row = re.compile(r"^\| [^|]+\| `(\w+)` \|([^|]*)\| `([\w/]+)` \|", re.MULTILINE)
    text = (ROOT / "docs/windows.md").read_text(encoding="utf-8")
    rows = {file: (class_name, caption.strip()) for class_name, caption, file in row.findall(text)}
    windows = [path.relative_to(ROOT).as_posix() for folder in FOLDERS for path in sorted((ROOT / folder).rglob("*.ui"))]
    faults = [fault for path in windows for fault in window_faults(path, rows)]
    faults += [f"docs/windows.md: there is no {file}.ui" for file in rows if f"{file}.ui" not in windows]
    if not windows or not rows:
        faults.append("no windows were found")
    print("\n".join(faults) or f"{len(windows)} windows are as their tables tell")
    sys.exit(1 if faults else 0)


if __name__ == "__main__":
    main()
