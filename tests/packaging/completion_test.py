#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

"""Completes commands, options, nicks and files of both programs in a real shell.

Usage: completion_test.py bash|zsh|fish BUILD_FOLDER
"""

import json
import os
import pathlib
import re
import shutil
import sys
import tempfile
import unittest

import shells

DEMO = pathlib.Path(__file__).resolve().parents[2] / "data/demo"


def plain(candidates):
    """Without what a shell puts around a word: an equals sign for the value, a slash behind a folder, quotes."""
    return sorted(re.sub(r"[=/]$", "", word.replace("\\", "")) for word in candidates)


def long_names(options):
    return [name for option in options for name in option["names"] if name.startswith("--")]


class Completion(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        scripts = BUILD / "packaging/reference/completion"
        cls.programs = json.loads((scripts.parent / "programs.json").read_text(encoding="utf-8"))
        cls.folder = pathlib.Path(tempfile.mkdtemp(prefix="kavo-test-"))
        shutil.copytree(DEMO, cls.folder / "My demo")
        (cls.folder / "club").mkdir()
        (cls.folder / "club/users.dat").write_bytes(b"Zo\xc3\xab\r\nZed Zed\r\n")
        for name in ("report.txt", "my form.ett", "other.ett"):
            (cls.folder / name).touch()
        environment = {
            "HOME": str(cls.folder),
            "PATH": f"{BUILD / 'bin'}:/usr/bin:/bin",
            "LANG": "C.UTF-8",
            "LC_ALL": "C.UTF-8",
            "KAVO_PROGRAM_FOLDER": str(cls.folder / "My demo"),
        }
        cls.shell = getattr(shells, SHELL.capitalize())(scripts, environment, cls.folder)

    @classmethod
    def tearDownClass(cls):
        cls.shell.close()
        shutil.rmtree(cls.folder)

    def expect(self, line, candidates):
        self.assertEqual(plain(self.shell.candidates(line)), sorted(candidates), line)

    def expect_among(self, line, candidates):
        self.assertLessEqual(set(candidates), set(plain(self.shell.candidates(line))), line)

    def expect_completed(self, line, completed):
        self.assertEqual(re.sub(r"= ?$", " ", self.shell.completed(line)), completed)

    def test_commands(self):
        names = {command["name"].split()[0] for command in self.programs["kavo-timing-cli"]["commands"]}
        self.assertIn("export-text", names)
        self.expect("kavo-timing-cli ", names)
        self.expect_completed("kavo-timing-cli sho", "kavo-timing-cli show ")
        self.expect_completed("kavo-timing-cli --user Marek sho", "kavo-timing-cli --user Marek show ")

    def test_second_words_of_commands(self):
        for command in self.programs["kavo-timing-cli"]["commands"]:
            words = command["name"].split()
            if len(words) == 2:
                self.expect_among(f"kavo-timing-cli {words[0]} ", [words[1]])

    def test_every_option_of_every_command(self):
        common = long_names(self.programs["kavo-timing-cli"]["options"])
        self.assertIn("--program-folder", common)
        self.expect("kavo-timing-cli --", common)
        for command in self.programs["kavo-timing-cli"]["commands"]:
            self.expect(f"kavo-timing-cli {command['name']} --", common + long_names(command["options"]))
        self.expect_completed("kavo-timing-cli show --js", "kavo-timing-cli show --json ")

    def test_every_option_of_the_desktop_program(self):
        options = long_names(self.programs["kavo-timing"]["options"])
        self.assertIn("--records-host", options)
        self.expect("kavo-timing --", options)
        self.expect_completed("kavo-timing --vers", "kavo-timing --version ")

    def test_every_value_by_its_kind(self):
        command_line = self.programs["kavo-timing-cli"]
        for option in command_line["options"]:
            self.expect_value(f"kavo-timing-cli {option['names'][-1]} ", option["value"])
        for command in command_line["commands"]:
            line = f"kavo-timing-cli {command['name']} "
            for option in command["options"]:
                if option["names"]:
                    self.expect_value(f"{line}{option['names'][-1]} ", option["value"])
                else:
                    self.expect_value(line, option["value"])
                    line += "7 "  # stands for anything

    def expect_value(self, line, value):
        if not value:
            return
        suffix = re.fullmatch(r"\w+(\.\w+)", value["name"])
        if value["kind"] == "file":
            self.expect_among(line, ["club"] if suffix and suffix[1] != ".ett" else ["club", "other.ett"])
        elif value["kind"] == "folder":
            self.expect(line, ["My demo", "club"])
        elif value["kind"] == "nick":
            self.expect(line, ["Marek", "Жанна"])
        elif value["kind"] == "choice":
            self.expect(line, value["choices"])
        else:
            self.expect(line, [])

    def test_nicks_are_those_of_the_program_folder_in_question(self):
        self.expect("kavo-timing-cli --user ", ["Marek", "Жанна"])
        self.expect("kavo-timing-cli show --user М", [])  # the Cyrillic letter
        self.expect_completed("kavo-timing-cli --user Ж", "kavo-timing-cli --user Жанна ")
        self.expect("kavo-timing-cli --program-folder club --user Zo", ["Zoë"])
        self.expect_completed(
            r"kavo-timing-cli --program-folder=~/My\ demo --user Ma",
            r"kavo-timing-cli --program-folder=~/My\ demo --user Marek ",
        )
        self.expect("kavo-timing-cli --program-folder nowhere --user ", [])

    def test_grades_with_blanks_in_their_names(self):
        grades = ["Beginner", "OK", "Good", "Professional", "World Class", "World Record", "Victories"]
        found = " ".join(plain(self.shell.candidates("kavo-timing-cli show --filter1 ")))
        for grade in grades:
            self.assertIn(grade, found)
        self.assertNotIn("report", found)
        if SHELL != "fish":  # which is asked for its candidates alone
            self.expect_completed(
                r"kavo-timing-cli show --filter1 World\ R", r"kavo-timing-cli show --filter1 World\ Record "
            )
        self.expect_completed("kavo-timing-cli show --filter2 vic", "kavo-timing-cli show --filter2 Victories ")

    def test_files_and_folders(self):
        self.expect("kavo-timing-cli export-text re", ["report.txt"])
        self.expect_among("kavo-timing-cli export-html --template other.ett ", ["report.txt", "club"])
        self.expect_completed(
            "kavo-timing-cli export-html --template oth", "kavo-timing-cli export-html --template other.ett "
        )
        if SHELL == "bash":  # the others go on to files of other names when none fits
            self.expect("kavo-timing-cli export-html --template r", [])
        self.expect("kavo-timing --program-folder ", ["My demo", "club"])
        self.expect("kavo-timing-cli --program-folder cl", ["club"])
        self.expect("kavo-timing --records-host ", [])


if __name__ == "__main__":
    if len(sys.argv) != 3 or sys.argv[1] not in ("bash", "zsh", "fish"):
        sys.exit(__doc__)
    SHELL, BUILD = sys.argv[1], pathlib.Path(sys.argv[2]).resolve()
    os.environ.pop("KAVO_PROGRAM_FOLDER", None)
    unittest.main(argv=sys.argv[:1], verbosity=2)
