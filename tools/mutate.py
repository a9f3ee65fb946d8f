#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

"""Changes one operator or constant of core/ at a time and tells which of these mutants the tests of core/ let live.

Usage: mutate.py [--build FOLDER] [--sample N] [--seed N] [FILE...]

The folder is one that kavo_tests has been built in; the sources are left alone. Without --sample every mutant is tried.
Mutants that change nothing that can be observed stand in tools/mutants.txt, with the reason. Fails when less than 95 %
of the others die.
"""

import argparse
import pathlib
import random
import re
import shlex
import subprocess
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parent.parent
REASONS = ROOT / "tools" / "mutants.txt"
LEAST = 0.95
PATIENCE = 120  # seconds for the tests of a mutant; a mutant may hang

# What is looked for, and what takes its place. Operators have blanks around them, which tells them from templates.
CHANGES = [
    (r"(?<= )==(?= )", "!="), (r"(?<= )!=(?= )", "=="), (r"(?<= )<(?= )", "<="), (r"(?<= )<=(?= )", "<"),
    (r"(?<= )>(?= )", ">="), (r"(?<= )>=(?= )", ">"), (r"(?<= )&&(?= )", "||"), (r"(?<= )\|\|(?= )", "&&"),
    (r"(?<= )\+(?= )", "-"), (r"(?<= )-(?= )", "+"), (r"(?<= )\*(?= )", "/"), (r"(?<= )/(?= \S)", "*"),
    (r"(?<= )%(?= )", "+"), (r"\+\+(?=\w)", "--"), (r"(?<= )\+=(?= )", "-="), (r"(?<= )-=(?= )", "+="),
    (r"\btrue\b", "false"), (r"\bfalse\b", "true"), (r"(?<=[( ])!(?=\w)", ""),
    (r"(?<![\w.\"'])\d+(?![\w.\"'])", lambda found: str(int(found.group()) + 1)),
]


def blanked(source):
    """The source with blanks in place of what is no code here: comments, texts, characters, directives, and what only
    another system compiles."""
    elsewhere = r"^#ifdef _WIN32\n.*?^#(?:else|endif)"
    no_code = elsewhere + "|" + r'//[^\n]*|/\*.*?\*/|R"\(.*?\)"|"(?:\\.|[^"\\\n])*"|\'(?:\\.|[^\'\\\n])*\'|^#[^\n]*'
    return re.sub(no_code, lambda found: re.sub(r"[^\n]", " ", found.group()), source, flags=re.DOTALL | re.MULTILINE)


def mutants_of(path):
    """(line number, line, changed line, the whole changed source)"""
    source = path.read_text(encoding="utf-8")
    code = blanked(source)
    for pattern, change in CHANGES:
        for found in re.finditer(pattern, code):
            changed = source[: found.start()] + found.expand(change) if isinstance(change, str) else None
            if changed is None:
                changed = source[: found.start()] + change(found)
            changed += source[found.end() :]
            number = source.count("\n", 0, found.start())
            yield number + 1, source.splitlines()[number].strip(), changed.splitlines()[number].strip(), changed


def command_for(build, target):
    """The last command that makes a target, as words, without the compiler's cache."""
    done = subprocess.run(["ninja", "-C", build, "-t", "commands", target], check=True, capture_output=True, text=True)
    words = shlex.split(done.stdout.splitlines()[-1].split(" && ")[1 if " && " in done.stdout.splitlines()[-1] else 0])
    for at, word in enumerate(words):
        if re.search(r"/(c\+\+|g\+\+|clang\+\+)[^/]*$", word):
            return words[at:]
    sys.exit(f"no command makes {target} in {build}")


def core_suites():
    """The filter of all tests that lie in tests/core/."""
    suites = set()
    for path in sorted((ROOT / "tests" / "core").glob("*_test.cpp")):
        suites.update(re.findall(r"^TEST(?:_F|_P)?\((\w+),", path.read_text(encoding="utf-8"), re.MULTILINE))
    return ":".join(f"{suite}.*" for suite in sorted(suites))


class Laboratory:
    """Builds the tests with one source of core/ changed, and runs those of core/."""

    def __init__(self, build, folder):
        self.build = build
        self.folder = pathlib.Path(folder)
        self.filter = "--gtest_filter=" + core_suites()
        self.link = command_for(build, "tests/kavo_tests")

    def run(self, command):
        return subprocess.run(command, cwd=self.build, capture_output=True, timeout=PATIENCE, check=False).returncode

    def verdict(self, path, source):
        """"died", "lives" or "does not compile"."""
        compile_command = command_for(self.build, f"core/CMakeFiles/kavo_core.dir/{path.name}.o")
        changed, made, program = self.folder / path.name, self.folder / "changed.o", self.folder / "tests"
        changed.write_text(source, encoding="utf-8")
        words = [str(changed) if pathlib.Path(word).name == path.name and word.endswith(".cpp") else word
                 for word in compile_command if word not in ("-MD", "-Werror")]
        for option in ("-MT", "-MF"):
            at = words.index(option)
            del words[at : at + 2]
        words[words.index("-o") + 1] = str(made)
        if self.run([*words, "-w", "-g0"]) != 0:
            return "does not compile"
        words = list(self.link)
        at = words.index("-o")
        words[at + 1] = str(program)
        words.insert(at + 2, str(made))  # before the library, whose own copy is then not asked for
        if self.run([*words, "-Wl,--strip-debug"]) != 0:
            return "does not compile"
        try:
            return "died" if self.run([str(program), self.filter, "--gtest_brief=1", "--gtest_fail_fast"]) != 0 else "lives"
        except subprocess.TimeoutExpired:
            return "died"


def reasons():
    """(file, changed line) to the reason why no test can tell the mutant."""
    known = {}
    if REASONS.exists():
        for line in REASONS.read_text(encoding="utf-8").splitlines():
            if line and not line.startswith("#"):
                file, changed, reason = re.split(r" \| ", line)
                known[(file, changed)] = reason
    return known


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--build", default="build-dev")
    parser.add_argument("--sample", type=int)
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("files", nargs="*", metavar="FILE")
    arguments = parser.parse_args()
    files = [ROOT / file for file in arguments.files] or sorted((ROOT / "core").glob("*.cpp"))
    mutants = [(path, *mutant) for path in files for mutant in mutants_of(path)]
    total = len(mutants)
    if arguments.sample and arguments.sample < total:
        mutants = random.Random(arguments.seed).sample(mutants, arguments.sample)
    known = reasons()
    count = {"died": 0, "lives": 0, "does not compile": 0, "changes nothing": 0}
    with tempfile.TemporaryDirectory(prefix="kavo-mutants-") as folder:
        laboratory = Laboratory((ROOT / arguments.build).resolve(), folder)
        if files and laboratory.verdict(files[0], files[0].read_text(encoding="utf-8")) != "lives":
            sys.exit("The tests fail without any change: build kavo_tests first.")
        for path, number, line, changed, source in mutants:
            file = path.relative_to(ROOT).as_posix()
            if (file, changed) in known:
                verdict = "changes nothing"
            else:
                verdict = laboratory.verdict(path, source)
            count[verdict] += 1
            if verdict == "lives":
                print(f"{file}:{number}: lives\n  - {line}\n  + {changed}", flush=True)
    judged = count["died"] + count["lives"]
    share = count["died"] / judged if judged else 0
    print(f"{len(mutants)} of {total} mutants:", ", ".join(f"{number} {name}" for name, number in count.items()))
    print(f"{100 * share:.1f} % of those that change something died")
    sys.exit(0 if share >= LEAST else 1)


if __name__ == "__main__":
    main()
