#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

"""Unpacks the Windows zip and uses what is in it, as somebody who has just got it.

WINE starts a Windows program; CLI is this system's kavo-timing-cli, which must print the same. The windows need a
display with a window manager.
"""

import argparse
import contextlib
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import zipfile

import drive_windows
import window_drive
from window_drive import expect

PATIENCE = 120  # seconds
MOMENT = re.compile(rb"As of [-:\d ]+")
CLASSES = "HKLM\\Software\\Classes\\"
FILES = """
    kavo-timing.exe kavo-timing-cli.exe dashboard.cmd README.txt targets.txt targets_old.txt history.txt links.txt
    templates/responsive.ett demo/users.dat demo/game/stats.txt guide/guide.html licences/NOTICES.txt
    licences/LGPL-3.txt
    """.split()


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
        return self.started(str(self.folder / program), *arguments, stdin=stdin)

    def started(self, *command, stdin=b""):
        """A Windows program with its arguments, at work in the folder."""
        command = [self.wine, *command]
        # Not by way of pipes: processes that Wine starts beside the program would keep them open.
        with tempfile.TemporaryFile() as out, tempfile.TemporaryFile() as error:
            done = subprocess.run(
                command, stdout=out, stderr=error, input=stdin, timeout=PATIENCE, check=False, cwd=self.folder
            )
            for stream in [out, error]:
                stream.seek(0)
            done.stdout = out.read()
            done.stderr = error.read()
        return done

    def here(self, *arguments):
        return subprocess.run([self.cli, *arguments], capture_output=True, timeout=PATIENCE, check=True)

    def here_in_folder(self, *arguments):
        return self.here("--program-folder", str(self.folder), *arguments).stdout

    def registry(self, *words):
        silence = subprocess.DEVNULL
        subprocess.run([self.wine, "reg", *words], stdout=silence, stderr=silence, timeout=PATIENCE, check=True)

    @contextlib.contextmanager
    def registry_value(self, key, name, kind, value):
        """For as long as it is needed. Without a name it is the key's default value."""
        self.registry("add", key, *(["/v", name] if name else ["/ve"]), "/t", kind, "/d", value, "/f")
        try:
            yield
        finally:
            self.registry("delete", key, "/f")

    @contextlib.contextmanager
    def classes(self, values):
        """Programs that the system knows by name: the default value of each key."""
        with contextlib.ExitStack() as stack:
            for key, value in values.items():
                stack.enter_context(self.registry_value(CLASSES + key, "", "REG_SZ", value))
            yield

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


def check_dashboard(programs):
    """The file to click, where nobody is yet and then in a folder with users."""
    click = ["cmd", "/c", "dashboard.cmd"]
    nobody = programs.started(*click)
    expect("dashboard of nobody", True, b"kavo-timing-cli: " in nobody.stderr)
    shutil.copytree(programs.folder / "demo", programs.folder, dirs_exist_ok=True)
    opened = programs.folder / "opened.html"
    handler = f'cmd.exe /c copy "%1" "{window_drive.system_path(opened)}"'
    with programs.classes({".html": "kavo.page", "kavo.page\\shell\\open\\command": handler}):
        done = programs.started(*click)
        expect("dashboard.cmd", 0, done.returncode)
        window_drive.wait_for("the opened page", lambda: opened.is_file() and opened.read_bytes().endswith(b"</html>\n"))
    page = programs.there("kavo-timing-cli.exe", "dashboard", "--output", "-").stdout
    expect("dashboard", MOMENT.sub(b"", page), MOMENT.sub(b"", opened.read_bytes()))
    expect("names in it", True, "Marek" in page.decode() and "Жанна" in page.decode())


def expect_nothing_left(folder):
    """Neither a temporary file nor the lock of a program that has ended."""
    expect("what is left", [], [path.name for path in folder.rglob("*") if re.match(r"\.kavo-|.*\.lock$", path.name)])


def new_place(work, check):
    """Named as many a player's folder is."""
    place = pathlib.Path(work) / check.__name__ / "Моя игра"
    place.mkdir(parents=True)
    return place


def check_window(programs):
    demo = programs.folder / "demo"
    (demo / "autolog.dat").write_bytes(b" 1 \r\n")
    done = programs.there("kavo-timing.exe", "--program-folder", "demo", "--quit-after-first-paint")
    expect("start of the window", (0, b""), (done.returncode, done.stdout))
    expect_nothing_left(programs.folder)


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("zip")
    parser.add_argument("wine")
    parser.add_argument("cli")
    parser.add_argument("stand_in", type=pathlib.Path, help="a Windows program that notes down what an office is asked for")
    parser.add_argument("--pictures", type=pathlib.Path, help="a folder for a picture of each window")
    arguments = parser.parse_args()
    with tempfile.TemporaryDirectory(prefix="kavo-windows-") as work:
        for check in [check_console, check_names, check_program_folder, check_dashboard, check_window]:
            check(Programs(unpack(arguments.zip, new_place(work, check)), arguments.wine, arguments.cli))
            print(check.__name__, "passed", flush=True)
        programs = Programs(unpack(arguments.zip, new_place(work, drive_windows.use)), arguments.wine, arguments.cli)
        drive_windows.use(programs, arguments.pictures, arguments.stand_in.resolve())
        expect_nothing_left(programs.folder)
    print("The package works.")


if __name__ == "__main__":
    main()
