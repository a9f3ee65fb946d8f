# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

"""Everything that the two programs save, as operations that can be run on a sandbox."""

import re
from typing import NamedTuple

from sandbox import TARGETS, lines, records_page, statistics, user_files

FOUR_COLOURS = lines(" 1 ", " 2 ", " 3 ", " 4 ")
AUTO_LOGIN_OFF = {"program/autolog.dat": lines(" 0 ")}

# A page without times has been read already: the good targets are in the backup only.
BAD_TARGETS = lines(*[",00:20:00,00:30:00,00:40:00,00:50:00"] * 55)
AFTER_BAD_PAGE = {"program/targets.txt": BAD_TARGETS, "program/targets.bak": TARGETS,
                  "in/page.html": 'another <td align="right">1:23,45</td>\r\n'}


REPORT = "out/report"
WHOLE_TEXT = {REPORT: re.compile(rb"Level name .*Target\r\n(.*\r\n){140}Victories: \d+\r\n")}
WHOLE_HTML = {REPORT: re.compile(rb"<!-- Maden by .* -->\r\n(.*\r\n){57}")}
# Without a file of names they are those of the statistics files, as far as these could be read.
NAMES_AS_FAR_AS_KNOWN = {"program/Marek/names.dat": re.compile(rb"(Player1|Marek)\r\n(Player2|Zoe)\r\nNight Riders\r\n")}


class Operation(NamedTuple):
    """Something that a user does and that ends in saved files."""

    name: str
    # What kavo-operations runs, or the arguments of the command line.
    steps: tuple = ()
    arguments: tuple = ()
    # The files that it begins with differ in these.
    changes: dict = {}
    # Files whose saving may fail without a word: the program has always gone on there.
    silent: frozenset = frozenset()
    # What saves the same files once more, where that is not the operation itself: a folder that is there already keeps
    # its user from being added to the list.
    again: str = ""
    # What a file of the table looks like that was written after a start that could not read everything.
    as_shown: dict = {}
    # A text that must be in some file of the program folder, whatever happens.
    kept: bytes = b""
    # Begins without a program folder: it is made and filled.
    is_first_start: bool = False

    @property
    def is_window(self):
        return bool(self.steps)

    def files(self):
        if self.is_first_start:
            return {}
        return user_files(self.changes)

    def showing(self):
        """A command that reads the same folder and saves nothing."""
        return self._replace(arguments=("users",) if self.is_first_start else ("show",))

    def next_start(self, is_auto_login):
        if not self.is_window:
            return self.showing()
        if self.is_first_start:
            return self
        return self._replace(steps=("start" if is_auto_login else "login-known",))


def window(name, changes=None, step=None, **more):
    return Operation(name, steps=(step or name,), changes=changes or {}, **more)


def command(name, *arguments, **more):
    return Operation("cli-" + name, arguments=arguments, **more)


def all_operations():
    kept = {"kept": TARGETS.encode()}
    return [
        command("export-text", "export-text", "{root}/out/report"),
        command("export-text-new", "export-text", "{root}/out/new-report"),
        command("export-html", "export-html", "--template", "{root}/in/template.ett", "{root}/out/report"),
        command("update-targets", "update-targets", "--page", "{root}/in/page.html", **kept),
        command("update-targets-first", "update-targets", "--page", "{root}/in/page.html",
                changes={"program/targets.txt": None}),
        command("first-start", "users", is_first_start=True),
        window("start"),
        window("login-known", AUTO_LOGIN_OFF),
        # The rest of a new user's steps is skipped silently where one fails.
        window("login-new", AUTO_LOGIN_OFF, again="login-other", silent=frozenset({"program/users.dat"})),
        window("first-start", step="login-new", is_first_start=True, again="login-other",
               silent=frozenset({"data/kavo-timing/users.dat"})),
        window("change-user", again="login-known"),
        window("options-save", {"program/Marek/1res.old": None}),
        window("options-save-again", step="options-save"),
        window("options-save-first", {"program/Marek/data.ini": None, "program/Marek/1res.old": None},
               step="options-save"),
        # The message comes whether or not anything was deleted.
        window("options-clear", silent=frozenset({"program/Marek/1res.old"})),
        window("view-upgrade", {"program/Marek/colors/colors.ini": FOUR_COLOURS}, step="view-open"),
        window("view-save"),
        window("view-save-first", {"program/Marek/colors/colors.ini": None}, step="view-save"),
        window("view-default"),
        window("view-set"),
        window("view-set-again", {"program/Marek/colors/colors_prev.ini": FOUR_COLOURS}, step="view-set"),
        window("view-scheme"),
        window("view-scheme-again", {"program/Marek/colors/mine.ini": FOUR_COLOURS}, step="view-scheme"),
        window("view-font"),
        window("bugs-add"),
        window("bugs-add-first", {"program/Marek/bugs.dat": None}, step="bugs-add"),
        window("bugs-remove"),
        window("rename"),
        window("rename-first", {"program/Marek/names.dat": None}, step="rename", as_shown=NAMES_AS_FAR_AS_KNOWN),
        window("resize"),
        window("resize-first", {"program/Marek/view.dat": None}, step="resize"),
        window("update-targets", **kept),
        window("update-targets-again", {"program/targets.bak": statistics("Old", 1)}, step="update-targets", **kept),
        window("update-targets-bad", {"in/page.html": "sorry\r\n"}, step="update-targets", **kept),
        window("update-targets-bad-again", AFTER_BAD_PAGE, step="update-targets", **kept),
        window("export-text", as_shown=WHOLE_TEXT),
        window("export-text-open", as_shown=WHOLE_TEXT),
        window("export-html", as_shown=WHOLE_HTML),
        window("template-save"),
    ]
