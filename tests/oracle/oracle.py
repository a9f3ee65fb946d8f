# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

"""The rules of the results table, stated a second time and as briefly as possible.

Independent of the program's sources on purpose: where the two differ, one of them has misread a rule.
Texts are Python strings in which a byte that is no UTF-8 stands as a lone surrogate, so that characters
are counted as the program counts them and every byte survives.
"""

import os
import re

LEVELS = 54
TOTALS = 55
GRADES = ["World Record", "World Class", "Professional", "Good", "OK"]
GRADE_COLOURS = [255, 352255, 16737430, 2014745, 6579300]
HEADERS = ["Level", "Time 1", "Target 1", "Time 2", "Target 2", "Difference", "Team", "Target", "Author"]
MISSING_TARGETS = (
    'Unable to find: targets.txt. If you want to download it now, select "Update targets" '
    "in right-button menu or press Ctrl+R"
)
CR_LF = "\r\n"
FASTER_TOTAL = 200 + 256 * 100 + 65536 * 200


class EndedEarly(Exception):
    """The loading ends here; the text is that of the error, None after "Wrong file!"."""


# Texts and numbers


def ordinal(text):
    return text.encode("utf-8", "surrogateescape")


def val(text):
    match = re.match(r" *([+-]?(?:[0-9]+\.?[0-9]*|\.[0-9]+)(?:[eE][+-]?[0-9]+)?)", text)
    return float(match.group(1)) if match else 0.0


def whole(text):
    return round(val(text))


def written(number):
    text = str(int(number)) if number == int(number) else repr(number)
    return "0" + text if len(text) == 1 else text


def instr(text, what, start):
    return text.find(what, start - 1) + 1


def mid(text, start, length):
    if start < 1 or length < 0:
        raise EndedEarly("Invalid procedure call or argument")
    return text[start - 1 : start - 1 + length]


# Times


def div(a, b):
    return int(a / b)


def add_time(a, b):
    h = whole(a[-2:]) + whole(b[6:8])
    s = whole(a[3:5]) + whole(b[3:5])
    m = whole(a[:2]) + whole(b[:2])
    c1 = div(h, 100)
    h, s = h - 100 * c1, s + c1
    c2 = div(s, 60)
    s, m = s - 60 * c2, m + c2
    return ":".join(map(written, (m, s, h)))


def format_total(total):
    minutes = whole(total[:2])
    if minutes < 60:
        return total
    return f"{minutes // 60}:{minutes % 60}:{total[3:]}"


def hundredths(t):
    return (val(t[:2]) * 60 + val(t[3:5])) * 100 + val(t[-2:])


def difference(t1, t2):
    """The text and which of the two is the faster (0: neither)."""
    if t1 == t2:
        return "No change", 0
    d = hundredths("10:00:00" if t2 == "SKIPPED" else t2) - hundredths(t1)
    faster = 2 if d < 0 else 1
    d = abs(d)
    minutes, seconds, rest = 0, 0, d
    if d >= 100:
        seconds = div(round(d), 100)
        rest = d - 100 * seconds
        minutes = div(seconds, 60) if seconds > 60 else 0
        seconds -= 60 * minutes
    return ":".join(map(written, (minutes, seconds, rest))), faster


# Files


def find(base, path):
    """The file or folder of that name, in any case; None when there is none."""
    found = base
    for name in path.replace("\\", "/").split("/"):
        if not os.path.lexists(os.path.join(found, name)):
            names = sorted(n for n in os.listdir(found) if n.lower() == name.lower()) if os.path.isdir(found) else []
            if not names:
                return None
            name = names[0]
        found = os.path.join(found, name)
    return found


def read(path):
    with open(path, "rb") as file:
        return file.read().decode("utf-8", "surrogateescape")


class Reader:
    """Lines and free-format fields of a text, each from where the one before ended."""

    def __init__(self, text):
        self.rest = text

    def need(self):
        if not self.rest:
            raise EndedEarly("Input past end of file")

    def line(self):
        self.need()
        line, _, self.rest = self.rest.partition("\n")
        return line[:-1] if line.endswith("\r") else line

    def field(self):
        self.need()
        quoted = re.match(r' *"([^"]*)"?[^,\n]*[,\n]?', self.rest)
        if quoted:
            self.rest = self.rest[quoted.end() :]
            return quoted.group(1)
        plain = re.match(r"([^,\n]*?)(?:,|\r?\n|$)", self.rest)
        self.rest = self.rest[plain.end() :]
        return plain.group(1).strip(" ")


# The loading


class Loading:
    def __init__(self, folder, user=None):
        self.folder = folder
        self.user = user
        self.caption = None
        self.messages = []
        self.headers = list(HEADERS)
        self.rows = []
        self.names = ["Player1", "Player2", "Team"]
        self.counts = [[0] * 6 for _ in range(3)]  # player 1, player 2, team
        self.victories = [0, 0]
        self.targets = [[""] * (TOTALS + 1) for _ in GRADES]
        self.text_colour = 0
        self.grade_colours = list(GRADE_COLOURS)
        self.error = None
        self.ended = False

    def run(self):
        try:
            self.steps()
        except EndedEarly as end:
            self.error = end.args[0]
            self.ended = True
        return self

    def steps(self):
        self.read_user()
        self.read_settings()
        self.read_colours()
        self.read_bug_times()
        stats = self.file_at(self.stats_path)
        if stats:
            self.fill(stats)
        if self.rows:
            self.rows.pop()
        self.headers[1], self.headers[3], self.headers[6] = self.names

    def file_at(self, path):
        if not path or "\0" in path:
            return None
        found = find("/", path[1:]) if path.startswith("/") else find(self.folder, path)
        return found if found and os.path.isfile(found) else None

    def user_file(self, *names):
        found = find(self.user_folder, "/".join(names))
        return found if found and os.path.isfile(found) else None

    def read_user(self):
        if self.user is None:
            current = find(self.folder, "curUser.dat")
            self.user = ""
            if not current:
                raise EndedEarly("File not found")
            self.user = Reader(read(current)).line()
        self.user_folder = find(self.folder, self.user)
        if not self.user_folder:
            raise EndedEarly("Path not found")

    def read_settings(self):
        self.caption = "Kavo Timing 2.1  User: " + self.user
        self.stats_path = self.comp_path = self.category = ""
        data = self.user_file("data.ini")
        if data:
            reader = Reader(read(data))
            self.stats_path = reader.line()
            method = whole(reader.field())
            self.comp_path = reader.line()
            self.category = reader.line()
            if method == 1:
                self.comp_path = os.path.join(self.user_folder, "1res.old")
            if method == 3:
                self.comp_path = "compwith"
            else:
                self.category = ""
        self.stats_path = self.stats_path or os.path.join(self.folder, "stats.txt")
        self.comp_path = self.comp_path or self.stats_path
        names = self.user_file("names.dat")
        if names:
            reader = Reader(read(names))
            for i in range(3):
                if reader.rest:
                    self.names[i] = reader.line()

    def read_colours(self):
        colours = self.user_file("colors", "colors.ini")
        text = read(colours) if colours else ""
        if len(ordinal(text)) < 10:
            return
        values = []
        reader = Reader(text)
        while reader.rest and len(values) < 9:
            values.append(whole(reader.field()))
        if len(values) > 3:
            self.text_colour = values[3]
        for i, value in enumerate(values[4:]):
            self.grade_colours[i] = value

    def read_bug_times(self):
        self.bug_times = [[""] * (LEVELS + 1) for _ in range(2)]
        bugs = self.user_file("bugs.dat")
        if not bugs:
            return
        reader = Reader(read(bugs))
        if reader.line().lower() != "player1":
            return
        player = 0
        while player == 0 or reader.rest:
            line = reader.line()
            if player == 0 and line.lower() == "player2":
                player = 1
                continue
            level = whole(line[:2])
            if not 1 <= level <= LEVELS:
                raise EndedEarly("Subscript out of range")
            self.bug_times[player][level] = line[4:]

    def load_targets(self):
        path = find(self.folder, "targets.txt")
        if not path:
            self.messages.append(MISSING_TARGETS)
            return
        reader = Reader(read(path))
        for record in range(1, TOTALS + 1):
            for targets in self.targets:
                targets[record] = reader.field()
            for targets in self.targets:
                targets[record] = targets[record].replace(".", ":")

    # Table

    def add_row(self, text):
        self.rows.append({"cells": [text] + [""] * 8, "bold": [False] * 9, "colours": [None] * 9})

    def cells(self, row):
        return self.rows[row - 1]["cells"]

    def grade(self, row, time):
        for i, targets in enumerate(self.targets):
            if ordinal(time) <= ordinal(targets[row]):
                return i
        return 5

    def show_grade(self, row, column, time):
        grade = self.grade(row, time)
        self.cells(row)[column] = (GRADES + ["Beginner"])[grade]
        if grade < 5:
            self.rows[row - 1]["colours"][column] = self.grade_colours[grade]
        return grade

    def grade_level(self, side, row, time_column):
        grade = self.show_grade(row, time_column + 1, self.cells(row)[time_column])
        self.counts[side][grade] += 1

    def wrong_file(self):
        self.messages.append("Wrong file!")
        raise EndedEarly(None)

    def read_times(self, side, text):
        column = 1 + 2 * side
        scan = 0
        for n in range(1, LEVELS + 1):
            scan = instr(text, "Level", scan + 1)
            line_end = instr(text, CR_LF, scan + 1)
            header = mid(text, scan, line_end - scan)
            if side == 0:
                self.add_row(header.replace("Level ", ""))
            time_line = mid(text, line_end, instr(text, CR_LF, line_end + 3 + 1) - line_end)
            bug_time = self.bug_times[side][n]
            line = time_line.replace(CR_LF, "").strip(" ")
            if bug_time:
                self.cells(n)[column] = bug_time
            elif line == "" or "Level" in line:
                self.cells(n)[column] = "SKIPPED"
                self.cells(n)[column + 1] = "Beginner"
                self.counts[side][5] += 1
                continue
            else:
                self.cells(n)[column] = line[:8]
                if self.names[side] == ["Player1", "Player2"][side]:
                    self.names[side] = line[9:].strip(" ")
            self.grade_level(side, n, column)

    def total(self, column):
        total = "00:00:00"
        for n in range(1, LEVELS + 1):
            time = self.cells(n)[column]
            total = add_time(total, "10:00:00" if time == "SKIPPED" else time)
        return total

    def fill(self, stats):
        text = read(stats)
        if "player" not in text.lower() or "level" not in text.lower():
            self.wrong_file()
        self.load_targets()
        self.read_times(0, text)
        self.counts[2] = list(self.counts[1])
        total = format_total(self.total(1))
        self.add_row("TOTAL TIME:")
        self.cells(TOTALS)[1] = total
        self.fill_second(total)
        self.compare()
        self.team()
        self.grade_totals()

    def fill_second(self, total):
        if self.comp_path.strip(" ") == "compwith":
            for n in range(1, LEVELS + 1):
                if self.category in GRADES:
                    targets = self.targets[GRADES.index(self.category)]
                    self.names[1] = self.category
                    self.cells(n)[3] = targets[n]
                    total = targets[TOTALS]
                self.grade_level(1, n, 3)
        else:
            path = self.file_at(self.comp_path)
            if not path:
                return
            text = read(path)
            lower = text.lower()
            if self.comp_path[-8:] != "1res.old" and not all(w in lower for w in ("player", "level", "steppes")):
                self.wrong_file()
            self.read_times(1, text)
            total = self.total(3)
        self.add_row("")
        self.cells(TOTALS)[3] = total

    def compare(self):
        for row in range(1, TOTALS + 1):
            cells = self.cells(row)
            cells[5], faster = difference(cells[1].strip(" "), cells[3].strip(" "))
            if faster and row <= LEVELS:
                self.rows[row - 1]["bold"][2 * faster - 1] = True
                self.victories[faster - 1] += 1
            elif faster:
                self.rows[row - 1]["colours"][2 * faster - 1] = FASTER_TOTAL

    def team(self):
        total = ""
        for row in range(1, LEVELS + 1):
            cells = self.cells(row)
            first = ordinal(cells[1]) < ordinal(cells[3])
            cells[6] = cells[1] if first else cells[3]
            cells[8] = self.names[0] if first else self.names[1]
            total = add_time(total, cells[6])
        self.cells(TOTALS)[8] = "Team"
        self.cells(TOTALS)[6] = total
        for row in range(1, LEVELS + 1):
            self.grade_level(2, row, 6)
        self.show_grade(TOTALS, 7, total)
        for row in range(1, TOTALS + 1):
            self.rows[row - 1]["bold"][6] = True

    def grade_totals(self):
        for column in (1, 3):
            total = self.cells(TOTALS)[column]
            self.show_grade(TOTALS, column + 1, total)
            if len(total) >= 9:
                self.cells(TOTALS)[column + 1] = "Beginner"
                self.rows[TOTALS - 1]["colours"][column + 1] = self.text_colour
        self.rows[TOTALS - 1]["bold"] = [True] * 9
        if self.category:
            self.cells(TOTALS)[4] = self.category

    def blank_rows(self, player, name):
        for row in self.rows[:TOTALS]:
            own, other = row["cells"][2 * player - 1], row["cells"][5 - 2 * player]
            if name == "Victories":
                blank = ordinal(other) < ordinal(own)
            else:
                blank = row["cells"][2 * player] != name
            if blank:
                row["cells"] = [""] * 9

    def report(self):
        """What `show --json` prints, but for the file's name behind an error."""
        rows = [
            {
                "cells": [shown(text) for text in row["cells"]],
                "bold": row["bold"],
                "colours": [self.text_colour if colour is None else colour for colour in row["colours"]],
            }
            for row in self.rows
        ]
        sides = ["player1", "player2", "team"]
        return {
            "user": shown(self.user),
            "caption": shown(self.caption) if self.caption is not None else None,
            "messages": self.messages,
            "error": self.error,
            "headers": [shown(text) for text in self.headers],
            "rows": rows,
            "names": {side: shown(name) for side, name in zip(sides, self.names)},
            "grades": {side: dict(zip(GRADES + ["Beginner"], count)) for side, count in zip(sides, self.counts)},
            "victories": {"player1": self.victories[0], "player2": self.victories[1]},
        }


def shown(text):
    """Bytes that are no UTF-8 as their Windows-1252 characters; the five unassigned ones keep their value."""

    def character(c):
        if not 0xDC80 <= ord(c) <= 0xDCFF:
            return c
        byte = bytes([ord(c) - 0xDC00])
        try:
            return byte.decode("cp1252")
        except UnicodeDecodeError:
            return byte.decode("latin-1")

    return "".join(map(character, text))
