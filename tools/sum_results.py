#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

"""Sums up the results of several stages: names what failed, ends with "N passed, N failed".

A stage leaves the JUnit file of ctest or of a GoogleTest program. STAGE.passed and STAGE.failed stand for a stage
without single tests, STAGE.failed also for one that did not come as far as its tests.
"""

import pathlib
import sys
import xml.etree.ElementTree as ElementTree


def name_of(case):
    """ctest writes the whole name into both attributes."""
    name, suite = case.get("name"), case.get("classname")
    return name if suite in (None, name) else f"{suite}.{name}"


def outcome_of(case):
    if case.find("failure") is not None or case.find("error") is not None or case.get("status") == "fail":
        return "Failed"
    if case.find("skipped") is not None or case.get("result") == "skipped":
        return "Skipped"
    return "Passed" if case.get("status") == "run" else "Failed"  # such as a test that never started


def results_of(file):
    if file.suffix == ".xml":
        for case in ElementTree.parse(file).getroot().iter("testcase"):
            yield outcome_of(case), f"{file.stem}: {name_of(case)}"
    elif file.suffix in (".passed", ".failed"):
        yield file.suffix[1:].capitalize(), file.stem


def main():
    names = {"Passed": [], "Skipped": [], "Failed": []}
    for file in sorted(pathlib.Path(sys.argv[1]).iterdir()):
        for outcome, name in results_of(file):
            names[outcome].append(name)
    for outcome in ("Skipped", "Failed"):
        for name in names[outcome]:
            print(f"{outcome}: {name}")
    print(f"{len(names['Passed'])} passed, {len(names['Failed'])} failed")
    sys.exit(1 if names["Failed"] or not names["Passed"] else 0)


if __name__ == "__main__":
    main()
