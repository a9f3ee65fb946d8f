# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

"""The window program of an unpacked zip from its first start on, as drive.py uses it: with keys, on a display."""

import contextlib
import pathlib
import re
import shutil

import records_server
import window_drive
from window_drive import expect, wait_for

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
PAGE = ROOT / "tests/data/records_page.html"
MAIN = "^Kavo Timing 2"
BOX = "^NRL Kavo Timing$"
# Title, key that opens it, key that closes it, and the name of its picture.
WINDOWS = [
    ("^Targets-updater$", "ctrl+r", "Escape", "targets-updater"),
    ("^BUGs$", "ctrl+b", "Escape", "bug-times"),
    ("^Options$", "F2", "Escape", "options"),
    ("^View$", "F3", "Escape", "view"),
    ("^Statistics", "F7", "Escape", "statistics"),
    ("^Levels' statistics$", "F8", "Escape", "level-statistics"),
    ("^eXtended HTML Export$", "ctrl+h", "alt+F4", "html-export"),
    ("^TextFile Export$", "ctrl+t", "Escape", "text-export"),
    ("^Links:$", "F9", "Escape", "links"),
    ("^About NRL Kavo Timing$", "F1", "Escape", "about"),
]
DATE = re.compile(rb"\d+/\d+/\d+")
EXCEL_NUMBER = "{6B1D5A0E-7C0B-4F0B-9A51-3C7E5D2F8A03}"


def has_come_to(log, last):
    """Whether the office's log ends with that line, or, without one, has come some way."""
    lines = log.read_text("utf-8").splitlines() if log.is_file() else []
    return lines and (lines[-1] == last if last else len(lines) > 100)


class FirstUse:
    """Somebody who has just unpacked the program: one session, step by step."""

    def __init__(self, programs, pictures, stand_in):
        self.programs = programs
        self.folder = programs.folder
        self.pictures = pictures
        self.stand_in = stand_in
        self.screen = None

    @contextlib.contextmanager
    def started(self, *arguments):
        command = [self.programs.wine, str(self.folder / "kavo-timing.exe"), *arguments]
        self.screen = window_drive.Screen(command, self.folder, self.pictures)
        try:
            yield
            self.screen.end_with(MAIN, "alt+F4")
        except SystemExit:
            self.screen.picture("root", "failed")
            raise
        finally:
            self.screen.end()

    def log_in_for_the_first_time(self):
        self.screen.picture(self.screen.window("^Login$"), "login")
        self.screen.open("^Login$", BOX, "Return", text="Marek")  # "New user: Marek"
        self.screen.close(BOX, "Return")
        self.screen.window("^Options$")  # opens by itself
        self.screen.open("^Options$", MAIN + ".*User: Marek$", "alt+s", text="game\\stats.txt")
        self.screen.wait_until_gone("^Options$")
        self.screen.picture(self.screen.window(MAIN), "main-window")
        expect("users.dat", b"Marek\r\n", (self.folder / "users.dat").read_bytes())
        expect("data.ini", b"game\\stats.txt", (self.folder / "Marek/data.ini").read_bytes().splitlines()[0])

    def look_at_every_window(self):
        for title, opening, closing, name in WINDOWS:
            self.screen.picture(self.screen.open(MAIN, title, opening), name)
            self.screen.close(title, closing)

    def export_text(self):
        """To a file whose folder has a Cyrillic name, and opened with what the system has for such files."""
        window = "^TextFile Export$"
        opened = self.folder / "opened.txt"
        handler = f'cmd.exe /c copy "%1" "{window_drive.system_path(opened)}"'
        with self.programs.classes({".txt": "kavo.report", "kavo.report\\shell\\open\\command": handler}):
            self.screen.open(MAIN, window, "ctrl+t")
            self.screen.choose_file(window, "space", name="report.txt")  # Browse
            self.screen.open(window, "^Successfully exported$", "alt+e")
            self.screen.close("^Successfully exported$", "Return")  # have a look
            wait_for("the opened report", lambda: opened.is_file() and opened.stat().st_size > 0)
        report = (self.folder / "report.txt").read_bytes()
        expect("text report", self.programs.here_in_folder("export-text", "-"), report)
        wait_for("the whole report", lambda: opened.read_bytes() == report)
        self.screen.close(window, "Escape")

    def export_html(self):
        window = "^eXtended HTML Export$"
        template = str(self.folder / "templates/plain-table.ett")
        editor = self.screen.open(MAIN, window, "ctrl+h")
        window_drive.press(*4 * ["shift+Tab"])  # from the first section back to "Load templates"
        self.screen.choose_file(window, "space", name="plain-table.ett")
        self.screen.focus(editor)
        window_drive.press("shift+Tab", "shift+Tab", "ctrl+a")  # the path
        window_drive.write("report.html")
        window_drive.press(*4 * ["Tab"])
        self.screen.open(window, BOX, "space")  # "Do Export!"
        self.screen.close(BOX, "Return")
        expected = self.programs.here_in_folder("export-html", "--template", template, "-")
        report = (self.folder / "report.html").read_bytes()
        expect("page", DATE.sub(b"", expected), DATE.sub(b"", report))
        self.screen.close(window, "alt+F4")

    def export_to_spreadsheet(self):
        """To no office, to one that dies, to one that is well: the window goes on."""
        self.export_to_office_and_go_on()
        for order, end in [("die Color", None), ("", "released")]:
            log = self.folder / "office.log"
            log.unlink(missing_ok=True)
            words = [window_drive.system_path(self.stand_in), EXCEL_NUMBER, window_drive.system_path(log)]
            server = " ".join(f'"{word}"' for word in words) + " " + order
            office = {"Excel.Application\\CLSID": EXCEL_NUMBER, f"CLSID\\{EXCEL_NUMBER}\\LocalServer32": server}
            with self.programs.classes(office):
                self.export_to_office_and_go_on()
                wait_for("the spreadsheet", lambda: has_come_to(log, end))

    def export_to_office_and_go_on(self):
        self.screen.window(MAIN)
        window_drive.press("ctrl+e")
        self.screen.open(MAIN, "^Statistics", "F7")
        self.screen.close("^Statistics", "Escape")

    def open_updater(self):
        # The first key after a start is often lost, and to press this one twice does no harm.
        return self.screen.open(MAIN, "^Targets-updater$", "ctrl+r", again=1)

    def update_targets(self):
        """As the command line of this system does it."""
        before = (self.folder / "targets.txt").read_bytes()
        updater = self.open_updater()
        window_drive.press("space")
        wait_for("new targets", lambda: (self.folder / "targets.txt").read_bytes() != before)
        self.screen.picture(updater, "targets-updated")
        self.screen.close("^Targets-updater$", "Escape")
        backup = (self.folder / "targets.bak").read_bytes()
        expect("targets.bak", before, backup)

    def refuse_stranger(self):
        """A server whose certificate nobody vouches for: an error, and no other targets."""
        before = (self.folder / "targets.txt").read_bytes()
        self.open_updater()
        self.screen.open("^Targets-updater$", BOX, "space")
        self.screen.close(BOX, "Return")
        self.screen.close("^Targets-updater$", "Escape")
        expect("targets.txt", before, (self.folder / "targets.txt").read_bytes())

    def expect_targets_of_page(self, before):
        folder = self.folder / "here"
        folder.mkdir()
        (folder / "targets.txt").write_bytes(before)
        shutil.copy(self.folder / "targets_old.txt", folder)
        self.programs.here("--program-folder", str(folder), "update-targets", "--page", str(PAGE))
        expected = (folder / "targets.txt").read_bytes()
        shutil.rmtree(folder)
        expect("targets", expected, (self.folder / "targets.txt").read_bytes())


def use(programs, pictures, stand_in):
    """All of it; exits with a message where something is not as it must be."""
    folder = programs.folder
    shutil.copytree(folder / "demo/game", folder / "game")
    supplied = (folder / "targets.txt").read_bytes()
    session = FirstUse(programs, pictures, stand_in)
    with records_server.serving(PAGE) as address, session.started("--records-host", address):
        session.log_in_for_the_first_time()
        session.look_at_every_window()
        session.export_text()
        session.export_html()
        session.export_to_spreadsheet()
        session.update_targets()
        session.expect_targets_of_page(supplied)
    # The next starts, without a login: the page from a stranger, and from a server that the system trusts.
    (folder / "targets.txt").write_bytes(supplied)
    (folder / "autolog.dat").write_bytes(b" 1 \r\n")
    certificate = records_server.Certificate(folder)
    trust = (certificate.registry_key(), "Blob", "REG_BINARY", certificate.registry_value())
    with records_server.serving(PAGE, certificate) as address:
        with session.started("--records-host", address):
            session.refuse_stranger()
        with programs.registry_value(*trust), session.started("--records-host", address):
            session.update_targets()
            session.expect_targets_of_page(supplied)
