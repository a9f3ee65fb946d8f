#!/usr/bin/env python3
"""Sums up the JUnit files of several ctest runs: names what failed, ends with "N passed, N failed".

A file named STAGE.failed stands for a stage that did not come as far as its tests, and counts as a failure.
"""

import pathlib
import sys
import xml.etree.ElementTree as ElementTree

passed, failed, skipped = 0, [], []
for file in sorted(pathlib.Path(sys.argv[1]).iterdir()):
    if file.suffix == ".failed":
        failed.append(file.stem)
    if file.suffix != ".xml":
        continue
    for case in ElementTree.parse(file).getroot().iter("testcase"):
        name = f"{file.stem}: {case.get('name')}"
        if case.get("status") == "run":
            passed += 1
        elif case.find("skipped") is not None and case.get("status") != "fail":
            skipped.append(name)
        else:
            failed.append(name)
for title, names in (("Skipped", skipped), ("Failed", failed)):
    for name in names:
        print(f"{title}: {name}")
print(f"{passed} passed, {len(failed)} failed")
sys.exit(1 if failed or not passed else 0)
