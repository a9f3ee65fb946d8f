#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

"""The programs as processes: what the environment, a terminal, a pipe or a full disk do to them.

Usage: process_test.py SOURCE-FOLDER CLI [DESKTOP-PROGRAM]
"""

import fcntl
import json
import os
import pathlib
import pty
import re
import shutil
import struct
import subprocess
import sys
import tempfile
import termios
import unicodedata
import unittest

SOURCE, CLI, DESKTOP = None, None, None
TIME_LIMIT = 120  # seconds

# Control characters, separators of lines, and what turns the direction of a text.
ACTING = re.compile("[\x00-\x1f\x7f\x80-\x9f\u2028-\u202e\u2066-\u2069]")


def environment(**changes):
    """Nothing of the caller's terminal and settings."""
    kept = {name: value for name, value in os.environ.items() if name in ("PATH", "HOME", "LD_LIBRARY_PATH", "QT_QPA_PLATFORM")}
    kept["LC_ALL"] = "C.UTF-8"
    kept["KAVO_HISTORY"] = "off"
    return kept | changes


def read_to_end(descriptor):
    """What a terminal receives: it ends with an error when its last program has closed it."""
    parts = []
    try:
        while part := os.read(descriptor, 65536):
            parts.append(part)
    except OSError:
        pass
    return b"".join(parts)


class Processes(unittest.TestCase):
    def setUp(self):
        self.folder = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory(prefix="kavo-process-")))
        shutil.copytree(SOURCE / "data/demo", self.folder, dirs_exist_ok=True)
        for file in (SOURCE / "data").glob("*.txt"):
            shutil.copy(file, self.folder)

    def call(self, *arguments):
        return [CLI, "--program-folder", str(self.folder), "--user", "Marek", *arguments]

    def run_piped(self, *arguments, **changes):
        return subprocess.run(self.call(*arguments), env=environment(**changes), capture_output=True,
                              stdin=subprocess.DEVNULL, timeout=TIME_LIMIT, check=False)

    def run_on_terminal(self, *arguments, columns=200, **changes):
        """Status and what a terminal of so many columns shows, its line ends as they were printed."""
        master, slave = pty.openpty()
        fcntl.ioctl(slave, termios.TIOCSWINSZ, struct.pack("HHHH", 50, columns, 0, 0))
        attributes = termios.tcgetattr(slave)
        attributes[1] &= ~termios.OPOST
        termios.tcsetattr(slave, termios.TCSANOW, attributes)
        with subprocess.Popen(self.call(*arguments), env=environment(**changes), stdin=subprocess.DEVNULL,
                              stdout=slave, stderr=subprocess.DEVNULL) as process:
            os.close(slave)
            shown = read_to_end(master)
            os.close(master)
            return process.wait(TIME_LIMIT), shown.decode("utf-8")


def width_of(line):
    """Columns of a line without escape sequences."""
    plain = re.sub("\x1b\\[[0-9;]*m", "", line)
    wide = sum(unicodedata.east_asian_width(c) in "WF" for c in plain)
    return len(plain) - sum(unicodedata.combining(c) > 0 for c in plain) + wide


class Colours(Processes):
    def colours(self, *options, **changes):
        status, shown = self.run_on_terminal("show", *options, **changes)
        self.assertEqual(status, 0)
        kinds = {"38;2;": "true", "38;5;": "palette"}
        found = {kinds.get(code[:5], "sixteen" if code[:1] in "39" else "bold")
                 for code in re.findall("\x1b\\[([0-9;]+)m", shown) if code != "0"}
        return found - {"bold"}

    def test_terminal_gets_the_colours_that_it_has(self):
        self.assertEqual(self.colours(TERM="xterm-256color", COLORTERM="truecolor"), {"true"})
        self.assertEqual(self.colours(TERM="xterm-256color"), {"palette"})
        self.assertEqual(self.colours(TERM="xterm"), {"sixteen"})

    def test_no_colours_where_nobody_wants_them(self):
        for changes in ({"TERM": "dumb"}, {}, {"TERM": "xterm", "NO_COLOR": "1"}):
            _, shown = self.run_on_terminal("show", **changes)
            self.assertNotIn("\x1b", shown)
        _, shown = self.run_on_terminal("show", "--colour", "never", TERM="xterm", COLORTERM="truecolor")
        self.assertNotIn("\x1b", shown)
        self.assertEqual(self.colours(TERM="xterm", NO_COLOR=""), {"sixteen"})

    def test_colours_on_demand(self):
        self.assertNotIn(b"\x1b", self.run_piped("show", TERM="xterm-256color").stdout)
        for option in ("--colour=always", "--color=always"):
            done = self.run_piped("show", option, TERM="xterm-256color", NO_COLOR="1")
            self.assertIn(b"\x1b[38;5;196m", done.stdout)


class Width(Processes):
    def test_table_fits_the_terminal(self):
        for columns in (80, 90, 100):
            status, shown = self.run_on_terminal("show", "--fit", columns=columns, TERM="xterm")
            self.assertEqual(status, 0)
            self.assertLessEqual(max(width_of(line) for line in shown.splitlines()), columns)
            self.assertIn("…", shown)
        wide = self.run_on_terminal("show", "--fit", columns=200)[1]
        self.assertEqual(wide, self.run_on_terminal("show")[1])
        self.assertNotIn("…", wide)

    def test_times_are_never_cut(self):
        narrow = self.run_on_terminal("show", "--fit", columns=20)[1]
        whole = self.run_on_terminal("show")[1]
        time = "[0-9][0-9:]*:[0-9]{2}:[0-9]{2}"
        self.assertEqual(re.findall(time, narrow), re.findall(time, whole))

    def test_pipe_is_as_wide_as_the_user_says(self):
        for changes, columns in (({"COLUMNS": "100"}, 100), ({}, 80)):
            lines = self.run_piped("show", "--fit", **changes).stdout.decode().splitlines()
            self.assertLessEqual(max(width_of(line) for line in lines), columns)
        self.assertNotIn("…", self.run_piped("show", COLUMNS="40").stdout.decode())

    def test_columns_line_up_with_wide_and_combining_characters(self):
        names = "日本の友達\r\nRene\u0301e\r\n🏁🏁\r\n"
        (self.folder / "Marek/names.dat").write_text(names, encoding="utf-8", newline="")
        lines = self.run_on_terminal("show")[1].splitlines()
        # The third column of the heading stands above that of the first row.
        self.assertIn("日本の友達", lines[0])
        self.assertEqual(width_of(lines[0][:lines[0].index("Target 1")]),
                         width_of(lines[1][:re.search("World|Prof|Good|OK|Beg", lines[1]).start()]))
        self.assertEqual(width_of(lines[0][:lines[0].index("Difference")]),
                         width_of(lines[1][:[m.start() for m in re.finditer("[0-9:]{8}", lines[1])][2]]))


class Characters(Processes):
    HOSTILE = "a\x1b]0;title\x07b\x7fc\u0085d\u009be\u202ef\u2066g\u2028h\tj"

    def setUp(self):
        super().setUp()
        (self.folder / "Marek/names.dat").write_text(f"{self.HOSTILE}\r\nBob\r\nTeam\r\n", encoding="utf-8", newline="")
        (self.folder / "users.dat").write_text(f"Marek\r\n{self.HOSTILE}\r\n", encoding="utf-8", newline="")

    def assert_harmless(self, shown, allowed="\n"):
        self.assertEqual(set(ACTING.findall(shown)) - set(allowed), set())

    def test_table_and_users_hold_no_control_characters(self):
        for command in (["show"], ["users"]):
            status, shown = self.run_on_terminal(*command, TERM="dumb")
            self.assertEqual(status, 0)
            self.assertIn("a ]0;title b c d e f g h j", shown)
            self.assert_harmless(shown)

    def test_json_holds_them_escaped(self):
        status, shown = self.run_on_terminal("show", "--json", TERM="xterm")
        self.assertEqual(status, 0)
        self.assert_harmless(shown)
        self.assertEqual(json.loads(shown), json.loads(self.run_piped("show", "--json").stdout))
        self.assertEqual(json.loads(shown)["names"]["player1"], self.HOSTILE)

    def test_reports_on_a_terminal_hold_line_ends_and_tabs_alone(self):
        template = str(SOURCE / "data/templates/plain-table.ett")
        for command in (["export-text", "-"], ["export-html", "--template", template, "-"]):
            status, shown = self.run_on_terminal(*command)
            self.assertEqual(status, 0)
            self.assert_harmless(shown, "\r\n\t")
            self.assertNotRegex(shown, "\r(?!\n)")

    def test_pipes_get_the_bytes_as_they_are(self):
        self.assertEqual(self.run_piped("users").stdout.decode(), f"Marek\n{self.HOSTILE}\n")
        report = self.folder / "report.txt"
        self.assertEqual(self.run_piped("export-text", str(report)).returncode, 0)
        self.assertEqual(self.run_piped("export-text", "-").stdout, report.read_bytes())

    def test_messages_hold_none_of_them(self):
        for arguments in (["--user", self.HOSTILE, "show"], ["show", self.HOSTILE], [self.HOSTILE]):
            done = subprocess.run([CLI, "--program-folder", self.folder, *arguments], env=environment(),
                                  capture_output=True, timeout=TIME_LIMIT, check=False)
            self.assertNotEqual(done.returncode, 0)
            self.assertTrue(done.stderr.startswith(b"kavo-timing-cli: "))
            self.assert_harmless(done.stderr.decode())


class Streams(Processes):
    def test_full_disk_is_noticed_by_every_command(self):
        template = str(SOURCE / "data/templates/plain-table.ett")
        for command in (["show"], ["show", "--json"], ["users"], ["export-text", "-"], ["--help"], ["--version"],
                        ["export-html", "--template", template, "-"], ["show", "--help"]):
            with open("/dev/full", "wb") as full:
                done = subprocess.run(self.call(*command), env=environment(), stdout=full, stderr=subprocess.PIPE,
                                      timeout=TIME_LIMIT, check=False)
            self.assertEqual(done.returncode, 1, command)
            self.assertEqual(done.stderr, b"kavo-timing-cli: Disk full: standard output (No space left on device)\n")

    def test_closed_output_is_noticed(self):
        done = subprocess.run(["sh", "-c", 'exec "$@" >&-', "sh", *self.call("users")], env=environment(),
                              stderr=subprocess.PIPE, timeout=TIME_LIMIT, check=False)
        self.assertEqual(done.returncode, 1)
        self.assertIn(b"standard output (Bad file descriptor)", done.stderr)

    def test_endless_page_is_refused(self):
        before = (self.folder / "targets.txt").read_bytes()
        with open("/dev/zero", "rb") as endless:
            done = subprocess.run(self.call("update-targets", "--page", "-"), env=environment(), stdin=endless,
                                  capture_output=True, timeout=TIME_LIMIT, check=False)
        self.assertEqual(done.returncode, 1)
        self.assertEqual(done.stderr, b"kavo-timing-cli: File too large: standard input (more than 4 MiB)\n")
        self.assertEqual((self.folder / "targets.txt").read_bytes(), before)

    def test_page_may_come_through_a_pipe_with_a_name(self):
        page = SOURCE / "tests/data/records_page.html"
        command = 'exec "$@" --page <(cat "$PAGE")'
        done = subprocess.run(["bash", "-c", command, "bash", *self.call("update-targets")],
                              env=environment(PAGE=str(page)), capture_output=True, timeout=TIME_LIMIT, check=False)
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertEqual((self.folder / "targets.txt").read_bytes(),
                         (SOURCE / "tests/data/records_page_targets.txt").read_bytes())

    def test_unreadable_standard_input_is_told(self):
        with tempfile.TemporaryDirectory() as folder:
            descriptor = os.open(folder, os.O_RDONLY)
            self.addCleanup(os.close, descriptor)
            done = subprocess.run(self.call("update-targets", "--page", "-"), env=environment(), stdin=descriptor,
                                  capture_output=True, timeout=TIME_LIMIT, check=False)
        self.assertEqual(done.returncode, 1)
        self.assertEqual(done.stderr,
                         b"kavo-timing-cli: Path/File access error: standard input (Is a directory)\n")


class CodePages(Processes):
    FYODOR = "Фёдор".encode("cp1251")

    def setUp(self):
        super().setUp()
        (self.folder / "Marek/names.dat").write_bytes(self.FYODOR + b"\r\nBob\r\nTeam\r\n")

    def name(self, *options, **changes):
        done = self.run_piped("show", "--json", *options, **changes)
        self.assertEqual(done.returncode, 0, done.stderr)
        return json.loads(done.stdout)["names"]["player1"]

    def test_option_and_environment_choose_one(self):
        for name in ("1251", "cp1251", "CP1251", "windows-1251", "Windows-1251"):
            self.assertEqual(self.name("--code-page", name), "Фёдор")
            self.assertEqual(self.name(KAVO_CODE_PAGE=name), "Фёдор")
        self.assertEqual(self.name("--code-page", "866"), self.FYODOR.decode("cp866"))
        # What is UTF-8 by itself stays so in the western code page: D4 B8.
        self.assertEqual(self.name(), "Ըäîð")
        self.assertEqual(self.name("--code-page=1252"), "Ըäîð")
        self.assertEqual(self.name(KAVO_CODE_PAGE=""), "Ըäîð")
        self.assertEqual(self.name("--code-page", "1251", KAVO_CODE_PAGE="nonsense"), "Фёдор")
        self.assertIn("Фёдор", self.run_on_terminal("show", "--code-page", "1251")[1])

    def test_bytes_are_written_as_they_were(self):
        reports = [self.run_piped("export-text", "-", "--code-page", name).stdout for name in ("1251", "1252")]
        self.assertIn(self.FYODOR, reports[0])
        self.assertEqual(reports[0], reports[1])

    def test_unknown_name_is_a_usage_error(self):
        for options, changes, source in ((["--code-page", "1259"], {}, "--code-page"),
                                         ([], {"KAVO_CODE_PAGE": "1259"}, "KAVO_CODE_PAGE")):
            done = self.run_piped("show", *options, **changes)
            self.assertEqual((done.returncode, done.stdout), (2, b""))
            self.assertTrue(done.stderr.decode().startswith(
                f"kavo-timing-cli: {source}: unknown code page 1259; there are 1250, 1251, 1252,"))
        self.assertEqual(self.run_piped("show", "--code-page", "").returncode, 2)
        self.assertEqual(self.run_piped("--help", KAVO_CODE_PAGE="1259").returncode, 0)
        self.assertEqual(self.run_piped("--version", KAVO_CODE_PAGE="1259").returncode, 0)

    def test_desktop_program_takes_the_same(self):
        if DESKTOP is None:
            self.skipTest("built without the desktop program")
        (self.folder / "autolog.dat").write_bytes(b" 1 \r\n")

        def run(*options, **changes):
            command = [DESKTOP, "--program-folder", self.folder, "--quit-after-first-paint", *options]
            changes = {"QT_QPA_PLATFORM": "offscreen"} | changes
            return subprocess.run(command, env=environment(**changes), capture_output=True, timeout=TIME_LIMIT,
                                  check=False)

        self.assertEqual(run("--code-page", "windows-1251").returncode, 0)
        self.assertEqual(run(KAVO_CODE_PAGE="koi8-r").returncode, 0)
        for done, source in ((run("--code-page", "1259"), "--code-page"),
                             (run(KAVO_CODE_PAGE="1259"), "KAVO_CODE_PAGE")):
            self.assertEqual((done.returncode, done.stdout), (2, b""))
            self.assertIn(f"{source}: unknown code page 1259; there are 1250,", done.stderr.decode())
            self.assertIn("Usage: ", done.stderr.decode())
        self.assertIn("--code-page <NAME>", run("--help").stdout.decode())


class DesktopProgram(Processes):
    """What it answers before it has a window."""

    def setUp(self):
        super().setUp()
        if DESKTOP is None:
            self.skipTest("built without the desktop program")

    def run_desktop(self, *options, **changes):
        """Without a display, unless the environment names a platform."""
        bare = {name: value for name, value in environment().items() if name != "QT_QPA_PLATFORM"}
        return subprocess.run([DESKTOP, *options], env=bare | changes, stdin=subprocess.DEVNULL, capture_output=True,
                              timeout=TIME_LIMIT, check=False)

    def test_version_is_answered_without_a_display(self):
        done = self.run_desktop("--version")
        self.assertEqual((done.returncode, done.stderr), (0, b""))
        self.assertEqual(done.stdout, b"Kavo Timing 2.1 build 73\n")

    def test_help_is_answered_without_a_display_and_names_every_option(self):
        answers = [self.run_desktop(name) for name in ("--help", "-h")]
        self.assertEqual([done.returncode for done in answers], [0, 0])
        self.assertEqual(answers[0].stdout, answers[1].stdout)
        text = answers[0].stdout.decode()
        self.assertTrue(text.startswith("Usage: kavo-timing [options]\n"), text)
        for part in ("--program-folder <DIR>", "--records-host <HOST[:PORT]>", "--code-page <NAME>", "--version",
                     "KAVO_PROGRAM_FOLDER", "KAVO_RECORDS_HOST", "KAVO_CODE_PAGE"):
            self.assertIn(part, text)
        self.assertNotIn("quit-after-first-paint", text)

    def test_wrong_arguments_are_told_with_the_usage(self):
        for arguments, reason in ((["--nonsense"], "Unknown option 'nonsense'."), (["Marek"], "Unexpected argument."),
                                  (["--help", "Marek"], "Unexpected argument."),
                                  (["--program-folder"], "Missing value after '--program-folder'.")):
            done = self.run_desktop(*arguments, QT_QPA_PLATFORM="offscreen")
            self.assertEqual((done.returncode, done.stdout), (2, b""), arguments)
            self.assertIn(f"{reason}\nUsage: ", done.stderr.decode())  # Qt may have words of its own before


if __name__ == "__main__":
    SOURCE, CLI = pathlib.Path(sys.argv[1]), os.path.abspath(sys.argv[2])
    DESKTOP = os.path.abspath(sys.argv[3]) if len(sys.argv) > 3 else None
    unittest.main(argv=sys.argv[:1])
