#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

"""Unpacks the portable copy into a folder with blanks and letters of other alphabets in its name, and starts it there.

Usage: portable_test.py kavo-timing-VERSION-linux-MACHINE.tar.xz
"""

import html.parser
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tarfile
import tempfile
import unittest

NOBODY = 65534
# What systems with Qt 6.4 have under the same names, and the office's own libraries.
EVERYWHERE = (
    r"libQt6(Core|Gui|Widgets|Network)\.so\.6|lib(stdc\+\+|c|m)\.so\.6|lib(gcc_s|z)\.so\.1|libdl\.so\.2"
    r"|libuno_.*|ld-linux.*"
)
# Debian 12's, the oldest system with that Qt that it is made for.
NEWEST_GLIBC = (2, 36)


def drop_rights():
    if os.geteuid() == 0:
        os.setgroups([])
        os.setgid(NOBODY)
        os.setuid(NOBODY)


class Links(html.parser.HTMLParser):
    """What a page leads to, as far as it lies beside it."""

    def __init__(self, page):
        super().__init__()
        self.found = []
        self.feed(page.read_text(encoding="utf-8"))

    def handle_starttag(self, tag, attributes):
        for name, value in attributes:
            if name in ("href", "src") and not re.match(r"[a-z]+:", value):
                self.found.append(value.split("#")[0])


class Portable(unittest.TestCase):
    def setUp(self):
        self.place = pathlib.Path(tempfile.mkdtemp(prefix="kavo-test-"))
        self.home = self.place / "home"
        games = self.place / "Мои игры – 試し & co"
        for folder in (self.home, games):
            folder.mkdir()
        with tarfile.open(TAR) as tar:
            self.assertEqual({member.name.split("/")[0] for member in tar}, {TAR.name.removesuffix(".tar.xz")})
            tar.extractall(games)
        self.folder = games / TAR.name.removesuffix(".tar.xz")
        if os.geteuid() == 0:
            for path in [self.place, *self.place.rglob("*")]:
                os.chown(path, NOBODY, NOBODY)

    def tearDown(self):
        shutil.rmtree(self.place)

    def run_program(self, name, *arguments):
        environment = {
            "HOME": str(self.home),
            "PATH": "/usr/bin:/bin",
            "LC_ALL": "C.UTF-8",
            "QT_QPA_PLATFORM": "offscreen",
        }
        done = subprocess.run(
            [self.folder / name, *arguments],
            env=environment,
            cwd="/",
            preexec_fn=drop_rights,
            capture_output=True,
            timeout=60,
            check=False,
        )
        self.assertEqual(done.returncode, 0, done.stderr)
        return done.stdout

    def fill(self):
        """The users of the demo folder and who logs in by himself."""
        for path in (self.folder / "demo").iterdir():
            target = self.folder / path.name
            if path.is_dir() and not target.exists():
                shutil.copytree(path, target)
            elif not target.exists():
                shutil.copyfile(path, target)
        (self.folder / "autolog.dat").write_bytes(b" 1 \r\n")
        if os.geteuid() == 0:
            for path in self.folder.rglob("*"):
                os.chown(path, NOBODY, NOBODY)

    def test_holds_the_program_folder(self):
        supplied = {"targets.txt", "targets_old.txt", "history.txt", "links.txt", "templates", "demo", "guide"}
        names = {path.name for path in self.folder.iterdir()}
        self.assertLessEqual(supplied | {"kavo-timing", "kavo-timing-cli", "README.txt"}, names)
        if (pathlib.Path(__file__).parents[2] / "data/schemes").is_dir():
            self.assertIn("schemes", names)

    def test_needs_nothing_that_other_systems_may_lack(self):
        along = {path.name for path in (self.folder / "lib").glob("*.so*")}
        programs = [self.folder / "kavo-timing", self.folder / "kavo-timing-cli"]
        for path in [*programs, *self.folder.glob("*.so"), *(self.folder / "lib").glob("*.so*")]:
            told = subprocess.run(["readelf", "-dV", path], capture_output=True, text=True, check=True).stdout
            needed = re.findall(r"\(NEEDED\).*\[(.*)\]", told)
            self.assertTrue(needed)
            self.assertEqual([name for name in needed if name not in along and not re.fullmatch(EVERYWHERE, name)], [])
            for version in re.findall(r"GLIBC_(\d+)\.(\d+)", told):
                self.assertLessEqual(tuple(map(int, version)), NEWEST_GLIBC, path.name)
        for library in along:
            self.assertTrue(list((self.folder / "lib").glob("*.copyright")), library)

    def test_folder_of_the_program_is_its_program_folder(self):
        self.fill()
        self.assertEqual(self.run_program("kavo-timing-cli", "users").decode(), "Marek\nЖанна\n")
        self.run_program("kavo-timing", "--quit-after-first-paint")
        self.assertTrue((self.folder / "Marek/view.dat").is_file())
        # Beside it, only the results are remembered.
        beside = [path.relative_to(self.home) for path in self.home.rglob("*") if path.is_file()]
        remembered = pathlib.Path(".local/state/kavo-timing/history")
        self.assertEqual([path for path in beside if not path.is_relative_to(remembered)], [])

    def test_demo_folder_is_complete(self):
        demo = self.folder / "demo"
        table = self.run_program("kavo-timing-cli", "--program-folder", demo, "--user", "Жанна", "show")
        self.assertEqual(len(table.decode().splitlines()), 56)
        (demo / "autolog.dat").write_bytes(b" 1 \r\n")
        self.run_program("kavo-timing", "--program-folder", demo, "--quit-after-first-paint")

    def test_export_by_a_template_that_comes_along(self):
        form = self.folder / "templates/plain-table.ett"
        report = self.run_program(
            "kavo-timing-cli", "--program-folder", self.folder / "demo", "export-html", "--template", form, "-"
        )
        self.assertIn("Жанна".encode(), report)

    def test_copy_that_cannot_be_written_makes_a_folder_for_the_user(self):
        for path in [self.folder, *self.folder.rglob("*")]:
            if os.geteuid() == 0:
                os.chown(path, 0, 0)
            path.chmod(0o555 if path.is_dir() or os.access(path, os.X_OK) else 0o444)
        try:
            self.run_program("kavo-timing-cli", "users")
            made = self.home / ".local/share/kavo-timing"
            self.assertEqual((made / "targets.txt").read_bytes(), (self.folder / "targets.txt").read_bytes())
        finally:
            for path in [self.folder, *self.folder.rglob("*")]:
                path.chmod(0o755)

    def test_guide_leads_nowhere_but_to_itself(self):
        pages = list((self.folder / "guide").rglob("*.html"))
        self.assertGreater(len(pages), 2)
        for page in pages:
            for link in Links(page).found:
                self.assertTrue((page.parent / link).exists(), f"{page.name}: {link}")


if __name__ == "__main__":
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    TAR = pathlib.Path(sys.argv[1]).resolve()
    unittest.main(argv=sys.argv[:1], verbosity=2)
