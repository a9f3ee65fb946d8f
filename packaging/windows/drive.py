#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

"""Unpacks the Windows zip and uses what is in it, as somebody who has just got it.

Usage: drive.py ZIP WINE CLI

WINE starts a Windows program; CLI is this system's kavo-timing-cli, which must print the same.
"""

import pathlib
import shutil
import subprocess
import sys
import tempfile
import zipfile

PATIENCE = 120  # seconds
FILES = """
    kavo-timing.exe kavo-timing-cli.exe README.txt targets.txt targets_old.txt history.txt links.txt
    templates/responsive.ett demo/users.dat demo/game/stats.txt guide/guide.html licences/NOTICES.txt
    licences/LGPL-3.txt
    """.split()


def expect(what, expected, actual):
    if expected != actual:
        sys.exit(f"{what}: expected {expected!r}, got {actual!r}")


def unpack(packed, folder):
    with zipfile.ZipFile(packed) as zipped:
        names = zipped.namelist()
        tops = {name.split("/")[0] for name in names}
        expect("top folder", {pathlib.Path(packed).stem}, tops)
        zipped.extractall(folder)
    unpacked = folder / pathlib.Path(packed).stem
    for name in FILES:
        expect(name, True, (unpacked / name).is_file())
    return unpacked


class Programs:
    def __init__(self, folder, wine, cli):
        self.folder = folder
        self.wine = wine
        self.cli = cli

    def there(self, program, *arguments, stdin=b""):
        command = [self.wine, str(self.folder / program), *arguments]
        return subprocess.run(command, capture_output=True, input=stdin, timeout=PATIENCE, check=False, cwd=self.folder)

    def here(self, *arguments):
        return subprocess.run([self.cli, *arguments], capture_output=True, timeout=PATIENCE, check=True)

    def expect_same(self, *arguments, of):
        theirs = self.there("kavo-timing-cli.exe", "--program-folder", "demo", *arguments)
        expect(f"{of}: exit status", 0, theirs.returncode)
        ours = self.here("--program-folder", str(self.folder / "demo"), *arguments)
        expect(of, ours.stdout, theirs.stdout)


def check_console(programs):
    version = programs.there("kavo-timing-cli.exe", "--version")
    expect("version", (0, programs.here("--version").stdout), (version.returncode, version.stdout))
    for user in ["Marek", "Жанна"]:
        programs.expect_same("--user", user, "show", of=f"table of {user}")
        programs.expect_same("--user", user, "show", "--json", of=f"JSON of {user}")
        programs.expect_same("--user", user, "export-text", "-", of=f"text report of {user}")
    programs.expect_same("users", of="users")


def check_names(programs):
    """Reports and nicks with names of another alphabet, in today's code and in an old one."""
    report = programs.folder / "Отчёт.txt"
    done = programs.there("kavo-timing-cli.exe", "--program-folder", "demo", "export-text", report.name)
    expect("report with a Cyrillic name", (0, True), (done.returncode, report.is_file()))
    old = programs.folder / "old"
    shutil.copytree(programs.folder / "demo", old)
    for file in ["users.dat", "curUser.dat"]:
        (old / file).write_bytes("Жанна\r\n".encode("cp1251"))
    done = programs.there("kavo-timing-cli.exe", "--program-folder", "old", "--code-page", "1251", "show")
    ours = programs.here("--program-folder", str(programs.folder / "demo"), "--user", "Жанна", "show")
    expect("table of a nick in 1251", (0, ours.stdout), (done.returncode, done.stdout))
    expect("users.dat", "Жанна\r\n".encode("cp1251"), (old / "users.dat").read_bytes())


def check_program_folder(programs):
    """Beside the program, with results that the user puts there."""
    done = programs.there("kavo-timing-cli.exe", "users")
    expect("users of a new folder", (0, b""), (done.returncode, done.stdout))
    shutil.copy(programs.folder / "targets.txt", programs.folder / "before.txt")
    page = pathlib.Path(__file__).resolve().parent.parent.parent / "tests/data/records_page.html"
    done = programs.there("kavo-timing-cli.exe", "update-targets", "--page", "-", stdin=page.read_bytes())
    expect("update of the targets", 0, done.returncode)
    expect("targets.bak", (programs.folder / "before.txt").read_bytes(), (programs.folder / "targets.bak").read_bytes())


def check_window(programs):
    demo = programs.folder / "demo"
    (demo / "autolog.dat").write_bytes(b" 1 \r\n")
    done = programs.there("kavo-timing.exe", "--program-folder", "demo", "--quit-after-first-paint")
    expect("start of the window", (0, b""), (done.returncode, done.stdout))
    expect("lock of a program that has ended", False, (demo / "kavo-timing.lock").exists())
    left = [path.name for path in programs.folder.rglob(".kavo-*")]
    expect("temporary files", [], left)


def main():
    if len(sys.argv) != 4:
        sys.exit(__doc__)
    packed, wine, cli = sys.argv[1:]
    with tempfile.TemporaryDirectory(prefix="kavo-windows-") as work:
        place = pathlib.Path(work) / "Моя игра"
        place.mkdir()
        programs = Programs(unpack(packed, place), wine, cli)
        for check in [check_console, check_names, check_program_folder, check_window]:
            check(programs)
            print(check.__name__, "passed", flush=True)
    print("The package works.")


if __name__ == "__main__":
    main()
