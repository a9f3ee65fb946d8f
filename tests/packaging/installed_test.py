#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

"""Installs a build into a folder and runs it from there, as a user who may not write to it.

Usage: installed_test.py BUILD_FOLDER
"""

import configparser
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest
import xml.etree.ElementTree

DEMO = pathlib.Path(__file__).resolve().parents[2] / "data/demo"
NOBODY = 65534
ICON_SIZES = (16, 22, 24, 32, 48, 64, 128, 256, 512)

# Below usr; the office's module and the guide for a browser come where what makes them is installed.
EXPECTED = [
    "bin/kavo-timing",
    "bin/kavo-timing-cli",
    "share/applications/kavo-timing.desktop",
    "share/bash-completion/completions/kavo-timing",
    "share/bash-completion/completions/kavo-timing-cli",
    "share/fish/vendor_completions.d/kavo-timing-cli.fish",
    "share/fish/vendor_completions.d/kavo-timing.fish",
    *(f"share/icons/hicolor/{size}x{size}/apps/kavo-timing.png" for size in ICON_SIZES),
    "share/icons/hicolor/scalable/apps/kavo-timing.svg",
    "share/kavo-timing/history.txt",
    "share/kavo-timing/links.txt",
    "share/kavo-timing/targets.txt",
    "share/kavo-timing/targets_old.txt",
    "share/man/man1/kavo-timing-cli.1",
    "share/man/man1/kavo-timing.1",
    "share/metainfo/org.example.kavotiming.metainfo.xml",
    "share/zsh/site-functions/_kavo-timing",
    "share/zsh/site-functions/_kavo-timing-cli",
]
FOLDERS = ("share/kavo-timing/templates/", "share/kavo-timing/schemes/", "share/doc/")


def drop_rights():
    """Root may write everywhere, which an installation is not made for."""
    if os.geteuid() == 0:
        os.setgroups([])
        os.setgid(NOBODY)
        os.setuid(NOBODY)


class Installed(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.place = pathlib.Path(tempfile.mkdtemp(prefix="kavo-test-"))
        cls.place.chmod(0o755)
        subprocess.run(
            ["cmake", "--install", BUILD, "--prefix", "/usr"],
            env={**os.environ, "DESTDIR": str(cls.place)},
            check=True,
            stdout=subprocess.DEVNULL,
        )
        cls.usr = cls.place / "usr"

    @classmethod
    def tearDownClass(cls):
        shutil.rmtree(cls.place)

    def setUp(self):
        self.home = pathlib.Path(tempfile.mkdtemp(prefix="kavo-test-"))
        shutil.copytree(DEMO, self.home / "demo")
        for name in ("targets.txt", "targets_old.txt"):
            shutil.copyfile(self.usr / "share/kavo-timing" / name, self.home / "demo" / name)
        (self.home / "demo/autolog.dat").write_bytes(b" 1 \r\n")
        if os.geteuid() == 0:
            for path in [self.home, *self.home.rglob("*")]:
                os.chown(path, NOBODY, NOBODY)

    def tearDown(self):
        shutil.rmtree(self.home)

    def run_program(self, name, *arguments):
        environment = {
            "HOME": str(self.home),
            "PATH": "/usr/bin:/bin",
            "LC_ALL": "C.UTF-8",
            "QT_QPA_PLATFORM": "offscreen",
        }
        return subprocess.run(
            [self.usr / "bin" / name, *arguments],
            env=environment,
            cwd=self.home,
            preexec_fn=drop_rights,
            capture_output=True,
            text=True,
            timeout=60,
            check=False,
        )

    def files(self):
        return [path.relative_to(self.usr).as_posix() for path in self.usr.rglob("*") if path.is_file()]

    def test_consists_of_what_a_desktop_expects(self):
        others = [name for name in self.files() if not name.startswith(FOLDERS) and not name.endswith(".so")]
        self.assertEqual(sorted(others), sorted(EXPECTED))
        self.assertIn("share/kavo-timing/templates/plain-table.ett", self.files())

    def test_names_of_desktop_entry_and_metadata_agree(self):
        entry = configparser.RawConfigParser()
        entry.optionxform = str
        entry.read(self.usr / "share/applications/kavo-timing.desktop", encoding="utf-8")
        entry = entry["Desktop Entry"]
        for key in ("Exec", "TryExec"):
            self.assertTrue((self.usr / "bin" / entry[key]).is_file())
        self.assertTrue((self.usr / f"share/icons/hicolor/48x48/apps/{entry['Icon']}.png").is_file())
        metadata = xml.etree.ElementTree.parse(self.usr / "share/metainfo/org.example.kavotiming.metainfo.xml")
        launchable = metadata.find("launchable").text
        self.assertTrue((self.usr / "share/applications" / launchable).is_file())
        self.assertEqual(metadata.find("id").text, "org.example.kavotiming")
        self.assertEqual(
            [category.text for category in metadata.findall("categories/category")],
            entry["Categories"].strip(";").split(";"),
        )
        for binary in metadata.findall("provides/binary"):
            self.assertTrue((self.usr / "bin" / binary.text).is_file())

    def test_action_of_the_desktop_entry_is_there_once_its_command_is(self):
        entry = (self.usr / "share/applications/kavo-timing.desktop").read_text(encoding="utf-8")
        has_command = self.run_program("kavo-timing-cli", "dashboard", "--help").returncode == 0
        self.assertEqual("\nActions=Dashboard;\n" in entry, has_command)
        self.assertEqual("\nExec=kavo-timing-cli dashboard --open\n" in entry, has_command)

    def test_states_the_one_version(self):
        metadata = xml.etree.ElementTree.parse(self.usr / "share/metainfo/org.example.kavotiming.metainfo.xml")
        version = metadata.find("releases/release").get("version")
        printed = self.run_program("kavo-timing-cli", "--version").stdout
        self.assertEqual(printed, "Kavo Timing {0} build {1}\n".format(*version.rsplit(".", 1)))
        for name in ("kavo-timing", "kavo-timing-cli"):
            manual = (self.usr / f"share/man/man1/{name}.1").read_text(encoding="utf-8")
            self.assertIn(f'"Kavo Timing {version}"', manual)

    def test_no_program_carries_a_search_path(self):
        for path in [*(self.usr / "bin").iterdir(), *self.usr.rglob("*.so")]:
            dynamic = subprocess.run(["readelf", "-d", path], capture_output=True, text=True, check=True).stdout
            self.assertIn("(NEEDED)", dynamic)
            self.assertNotRegex(dynamic, r"\((RUNPATH|RPATH)\)")

    def test_first_start_makes_the_program_folder_in_the_data_home(self):
        done = self.run_program("kavo-timing-cli", "users")
        self.assertEqual((done.returncode, done.stdout, done.stderr), (0, "", ""))
        folder = self.home / ".local/share/kavo-timing"
        self.assertEqual(
            sorted(path.name for path in folder.iterdir()),
            ["history.txt", "links.txt", "targets.txt", "targets_old.txt"],
        )
        supplied = self.usr / "share/kavo-timing/targets.txt"
        self.assertEqual((folder / "targets.txt").read_bytes(), supplied.read_bytes())

    def test_prints_the_table(self):
        done = self.run_program("kavo-timing-cli", "--program-folder", "demo", "show")
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertEqual(len(done.stdout.splitlines()), 56)

    def test_shows_the_main_window(self):
        done = self.run_program("kavo-timing", "--program-folder", "demo", "--quit-after-first-paint")
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertTrue((self.home / "demo/Marek/view.dat").is_file())


if __name__ == "__main__":
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    BUILD = pathlib.Path(sys.argv[1]).resolve()
    unittest.main(argv=sys.argv[:1], verbosity=2)
