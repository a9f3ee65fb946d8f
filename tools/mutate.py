#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

"""Changes one operator or constant of core/ at a time and tells which of these mutants the tests of core/ let live.

Usage: mutate.py [--build FOLDER] [--sample N] [--seed N] [--jobs N] [FILE...]

The folder is one that CMake has configured; the sources are left alone. Without a file all sources are changed, one
after the other; a header that is named is changed, too, but whatever includes it is then compiled anew, the tests
included. Mutants that may live stand in tools/mutants.txt, each with the reason. Fails when less than 95 % die, when one
that is not listed lives, and when one that is listed dies or is no mutant any more.
"""

import argparse
import concurrent.futures
import os
import pathlib
import queue
import random
import re
import resource
import shlex
import shutil
import subprocess
import sys
import tempfile
from typing import NamedTuple

ROOT = pathlib.Path(__file__).resolve().parent.parent
REASONS = ROOT / "tools" / "mutants.txt"
LEAST = 0.95
PATIENCE = 120  # seconds for the tests of a mutant, which may wait for ever
MOST_CPU = 20  # seconds that it may reckon
MOST_MEMORY = 4 << 30  # bytes that it may take

# What is looked for, and what takes its place. Operators have blanks around them, which tells them from templates.
CHANGES = [
    (r"(?<= )==(?= )", "!="), (r"(?<= )!=(?= )", "=="), (r"(?<= )<(?= )", "<="), (r"(?<= )<=(?= )", "<"),
    (r"(?<= )>(?= )", ">="), (r"(?<= )>=(?= )", ">"), (r"(?<= )&&(?= )", "||"), (r"(?<= )\|\|(?= )", "&&"),
    (r"(?<= )\+(?= )", "-"), (r"(?<= )-(?= )", "+"), (r"(?<= )\*(?= )", "/"), (r"(?<= )/(?= \S)", "*"),
    (r"(?<= )%(?= )", "+"), (r"\+\+(?=\w)", "--"), (r"(?<= )\+=(?= )", "-="), (r"(?<= )-=(?= )", "+="),
    (r"\btrue\b", "false"), (r"\bfalse\b", "true"), (r"(?<=[( ])!(?=\w)", ""),
    (r"(?<![\w.\"'])\d+(?![\w.\"'])", lambda found: str(int(found.group()) + 1)),
]
TEXTS = [
    (r'"((?:\\.|[^"\\\n])*)"', lambda found: f'"{found.group(1)}!"'),
    (r"'(?:\\.|[^'\\\n])'", lambda found: "'!'"),
]
COMMENT = r"//[^\n]*|/\*.*?\*/"
ELSEWHERE = r"^#ifdef _WIN32\n.*?^#(?:else|endif)"  # what only another system compiles
TEXT = r'"(?:\\.|[^"\\\n])*"|\'(?:\\.|[^\'\\\n])*\''


class Mutant(NamedTuple):
    path: pathlib.Path
    number: int  # of the line
    line: str
    changed: str
    source: str

    @property
    def file(self):
        return self.path.relative_to(ROOT).as_posix()


def blanked(source, texts):
    """The source with blanks in place of what is no code here, and of texts, too, if these are not looked at."""
    no_code = ELSEWHERE + "|" + COMMENT + "|^#[^\n]*" + ("" if texts else "|" + TEXT)
    # Texts are found even where they stay: what looks like a comment within them is none.
    whole = no_code if not texts else TEXT + "|" + no_code

    def blank(found):
        is_text = texts and found.group()[0] in "\"'"
        return found.group() if is_text else re.sub(r"[^\n]", " ", found.group())

    return re.sub(whole, blank, source, flags=re.DOTALL | re.MULTILINE)


def mutants_of(path):
    source = path.read_text(encoding="utf-8")
    for changes, code in ((CHANGES, blanked(source, texts=False)), (TEXTS, blanked(source, texts=True))):
        for pattern, change in changes:
            for found in re.finditer(pattern, code):
                new = change(found) if callable(change) else change
                changed = source[: found.start()] + new + source[found.end() :]
                at = source.count("\n", 0, found.start())
                line, changed_line = source.splitlines()[at], changed.splitlines()[at]
                if re.search(r"\) (const )?= 0;", line):  # no constant: the function is another's
                    continue
                yield Mutant(path, at + 1, line.strip(), changed_line.strip(), changed)


def commands_of(build, target):
    """The words of every command that makes a target, by what it makes; without the compiler's cache."""
    done = subprocess.run(["ninja", "-C", build, "-t", "commands", target], check=True, capture_output=True, text=True)
    commands = {}
    for line in done.stdout.splitlines():
        words = shlex.split(line)
        starts = [at for at, word in enumerate(words) if re.search(r"/(c\+\+|g\+\+|clang\+\+)[^/]*$", word)]
        if not starts or "-o" not in words:
            continue
        words = words[starts[0] :]
        words = words[: words.index("&&")] if "&&" in words else words
        commands[words[words.index("-o") + 1]] = words
    return commands


def without(words, options):
    """The words without options that have a value."""
    kept = list(words)
    for option in options:
        while option in kept:
            at = kept.index(option)
            del kept[at : at + 2]
    return kept


def kept_small():
    resource.setrlimit(resource.RLIMIT_CPU, (MOST_CPU, MOST_CPU))
    resource.setrlimit(resource.RLIMIT_AS, (MOST_MEMORY, MOST_MEMORY))


class Laboratory:
    """Builds the tests of core/ with one file of core/ changed, and runs them."""

    def __init__(self, build, folder):
        self.build = build
        self.folder = folder
        commands = commands_of(build, "tests/kavo_tests")
        link = [word for word in commands["tests/kavo_tests"]
                if not word.startswith("tests/CMakeFiles/kavo_tests.dir/") or word.split("/")[3] == "core"]
        needed = [word for word in link if word.endswith((".o", ".a")) and not word.startswith("/")]
        subprocess.run(["ninja", "-C", build, *needed], check=True, stdout=subprocess.DEVNULL)
        self.compiling = {made: words for made, words in commands.items()
                          if made.startswith(("core/CMakeFiles/", "tests/CMakeFiles/kavo_tests.dir/core/",
                                              "tests/CMakeFiles/kavo_test_support.dir/"))
                          and words[-1].endswith(".cpp")}
        self.read_by = self.files_read()
        # One program for each mutant: the linker has to be quick.
        self.link = link + (["-fuse-ld=lld"] if shutil.which("ld.lld") else []) + ["-Wl,--strip-debug"]

    def files_read(self):
        """What is compiled to the files of core/ that it includes."""
        done = subprocess.run(["ninja", "-C", self.build, "-t", "deps"], check=True, capture_output=True, text=True)
        read = {}
        for block in done.stdout.split("\n\n"):
            made, _, files = block.partition(":")
            read[made] = {(pathlib.Path(self.build) / line.strip()).resolve() for line in files.splitlines()[1:]
                          if "/core/" in line}
        return read

    def objects_of(self, path):
        """Which objects a file goes into."""
        if path.suffix == ".cpp":
            return [made for made, words in self.compiling.items() if pathlib.Path(words[-1]).resolve() == path]
        return [made for made in self.compiling if path in self.read_by.get(made, ())]

    def run(self, command, **options):
        return subprocess.run(command, cwd=self.build, capture_output=True, timeout=PATIENCE, check=False,
                              **options).returncode

    def compiles(self, made, path, place, to):
        words = self.compiling[made]
        source = place / path.name if pathlib.Path(words[-1]).resolve() == path else words[-1]
        words = [word for word in without(words[:-2], ["-MT", "-MF", "-o"]) if word not in ("-MD", "-Werror")]
        if path.suffix == ".h":  # before the include root that has the header as it is
            words[1:1] = [f"-I{place / 'include'}"]
        if "-include" not in words:  # precompiled headers want the options that they were made with
            words += ["-g0", "-O0"]
        return self.run([*words, "-w", "-o", str(to), "-c", str(source)]) == 0

    def verdict(self, path, source, place):
        """"died", "lives" or "does not compile"."""
        shutil.rmtree(place, ignore_errors=True)
        (place / "tmp").mkdir(parents=True)
        changed = place / ("include/core/" if path.suffix == ".h" else ".") / path.name
        changed.parent.mkdir(parents=True, exist_ok=True)
        changed.write_text(source, encoding="utf-8")
        new = {}
        for number, made in enumerate(self.objects_of(path)):
            new[made] = place / f"{number}.o"
            if not self.compiles(made, path, place, new[made]):
                return "does not compile"
        program = place / "tests"
        words = [str(new.get(word, word)) for word in self.link]
        at = words.index("-o")
        # Before the libraries, whose own copies are then not asked for.
        words[at + 1 : at + 2] = [str(program), *(str(place) for made, place in new.items() if made not in self.link)]
        if self.run(words) != 0:
            return "does not compile"
        try:
            # The temporary folders go with the place, whatever becomes of the tests.
            died = self.run([str(program), "--gtest_brief=1", "--gtest_fail_fast"], preexec_fn=kept_small,
                            env={**os.environ, "TMPDIR": str(place / "tmp")}) != 0
        except subprocess.TimeoutExpired:
            return "died"
        return "died" if died else "lives"


def reasons():
    """(file, changed line) to the reason why the mutant may live."""
    known = {}
    for line in REASONS.read_text(encoding="utf-8").splitlines():
        if line and not line.startswith("#"):
            file, changed, reason = line.split(" | ")
            known[(file, changed)] = reason
    return known


def judged(laboratory, folder, mutants, jobs):
    """(mutant, verdict) one after the other, as they come."""
    places = queue.Queue()
    for number in range(jobs):
        places.put(folder / str(number))

    def judge(mutant):
        place = places.get()
        try:
            return mutant, laboratory.verdict(mutant.path, mutant.source, place)
        finally:
            places.put(place)

    with concurrent.futures.ThreadPoolExecutor(jobs) as pool:
        yield from pool.map(judge, mutants)


def told(verdict, mutant):
    print(f"{mutant.file}:{mutant.number}: {verdict}\n  - {mutant.line}\n  + {mutant.changed}", flush=True)


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--build", default="build-dev")
    parser.add_argument("--sample", type=int)
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--jobs", type=int, default=os.cpu_count())
    parser.add_argument("files", nargs="*", metavar="FILE")
    arguments = parser.parse_args()
    core = ROOT / "core"
    files = [(ROOT / file).resolve() for file in arguments.files] or sorted(core.glob("*.cpp"))
    mutants = [mutant for path in files for mutant in mutants_of(path)]
    known = reasons()
    names = {(mutant.file, mutant.changed) for mutant in mutants}
    tried_files = {path.relative_to(ROOT).as_posix() for path in files}
    gone = [f"{file} | {changed}" for file, changed in known if file in tried_files and (file, changed) not in names]
    if gone:
        sys.exit("No mutant any more, but listed in tools/mutants.txt:\n" + "\n".join(gone))
    total = len(mutants)
    if arguments.sample and arguments.sample < total:
        mutants = random.Random(arguments.seed).sample(mutants, arguments.sample)
    count = {"died": 0, "lives": 0, "may live": 0, "does not compile": 0, "died, but is listed": 0}
    with tempfile.TemporaryDirectory(prefix="kavo-mutants-") as name:
        folder = pathlib.Path(name)
        folder.chmod(0o755)  # some tests look at their files as another user
        laboratory = Laboratory(str((ROOT / arguments.build).resolve()), folder)
        whole = core / "targets.cpp"
        if laboratory.verdict(whole, whole.read_text(encoding="utf-8"), folder / "unchanged") != "lives":
            sys.exit("The tests of core/ fail without any change.")
        for mutant, verdict in judged(laboratory, folder, mutants, arguments.jobs):
            if (mutant.file, mutant.changed) in known:
                verdict = {"lives": "may live", "died": "died, but is listed"}.get(verdict, verdict)
            count[verdict] += 1
            if verdict in ("lives", "died, but is listed"):
                told(verdict, mutant)
    share = count["died"] / max(1, sum(count.values()) - count["does not compile"])
    print(f"{len(mutants)} of {total} mutants:", ", ".join(f"{number} {name}" for name, number in count.items()))
    print(f"{100 * share:.1f} % of those that compile died")
    sys.exit(0 if share >= LEAST and count["lives"] == 0 and count["died, but is listed"] == 0 else 1)


if __name__ == "__main__":
    main()
