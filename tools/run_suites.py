#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

"""Runs the suites of GoogleTest programs, each in a process of its own, several at a time.

Usage: run_suites.py [--jobs N] [--patience SECONDS] RESULTS.xml PROGRAM...

A process for each single test, as ctest starts them, takes several times as long: with the sanitizers nearly all of it
is the start of the process. Where a suite ends before its end (a crash, a test that hangs), the test at which it ended
and those that it has not come to have failed. Prints what failing suites say. Fails when a test does.
"""

import argparse
import concurrent.futures
import os
import pathlib
import re
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as ElementTree


def suites_of(program):
    """The name of each suite to those of its tests."""
    listing = subprocess.run([program, "--gtest_list_tests"], check=True, capture_output=True, text=True).stdout
    suites = {}
    for line in listing.splitlines():
        name = line.split("#")[0].strip()
        if line.startswith("  "):
            suites[list(suites)[-1]].append(name)
        elif name.endswith("."):
            suites[name[:-1]] = []
    return suites


def told_cases(suite, tests, output):
    """The results of a suite that has left none, as far as its output tells them."""
    passed = set(re.findall(r"^\[       OK \] \S+\.(\S+)", output, re.MULTILINE))
    results = ElementTree.Element("testsuite", name=suite)
    for test in tests:
        case = ElementTree.SubElement(results, "testcase", name=test, classname=suite, status="run")
        if test not in passed:
            ElementTree.SubElement(case, "failure", message="the suite ended before this test did")
    return results


def run(program, suite, tests, patience, folder):
    """(results, output) of a suite; None for the output when all is well."""
    report = folder / f"{abs(hash((program, suite)))}.xml"
    log = report.with_suffix(".log")  # no pipe: what a test has left running would keep it open
    command = [program, f"--gtest_filter={suite}.*", f"--gtest_output=xml:{report}"]
    with log.open("wb") as file:
        try:
            status = subprocess.run(command, cwd=program.parent, stdout=file, stderr=file, timeout=patience,
                                    check=False).returncode
        except subprocess.TimeoutExpired:
            file.write(f"\nended after {patience} s\n".encode())
            status = 1
    output = log.read_text(encoding="utf-8", errors="replace")
    found = list(ElementTree.parse(report).getroot()) if report.exists() else [told_cases(suite, tests, output)]
    if status != 0 and not any(result.find(".//failure") is not None for result in found):
        found.append(told_cases(suite, ["EndsWell"], ""))  # such as a leak that is told at the end
    return found, output if status != 0 else None


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--jobs", type=int, default=os.cpu_count())
    parser.add_argument("--patience", type=int, default=300, metavar="SECONDS", help="with one suite")
    parser.add_argument("results", type=pathlib.Path, metavar="RESULTS.xml")
    parser.add_argument("programs", type=pathlib.Path, nargs="+", metavar="PROGRAM")
    arguments = parser.parse_args()
    whole = ElementTree.Element("testsuites")
    has_failed = False
    with tempfile.TemporaryDirectory() as name, concurrent.futures.ThreadPoolExecutor(arguments.jobs) as pool:
        runs = [pool.submit(run, program.resolve(), suite, tests, arguments.patience, pathlib.Path(name))
                for program in arguments.programs for suite, tests in suites_of(program).items()]
        for ended in runs:
            results, output = ended.result()
            whole.extend(results)
            if output is not None:
                has_failed = True
                print(output, end="")
    ElementTree.ElementTree(whole).write(arguments.results, encoding="utf-8", xml_declaration=True)
    sys.exit(1 if has_failed else 0)


if __name__ == "__main__":
    main()
