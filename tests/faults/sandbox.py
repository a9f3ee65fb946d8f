# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

"""Program folders for the tests of faults: made in a moment, looked at byte for byte, compared."""

import os
import shutil
import stat

LEVELS = 54
PAGE_ROWS = 27


def statistics(driver, seconds):
    """A small statistics file: every level driven once."""
    text = f"Statistics of player {driver}\r\n\r\n"
    for level in range(1, LEVELS + 1):
        name = "Steppes" if level == 8 else "Track"
        text += f"Level {level}, {name}\r\n00:{(seconds + level) % 60:02}:00 {driver}\r\n\r\n"
    return text + "End of statistics\r\n"


def records_page(first):
    """A world-records page; `first` (seconds) tells one page from another."""
    cell = '<td align="right">{:02},{:02}</td>'
    rows = (f"<tr>{cell.format(first, row)}{cell.format(first, row + PAGE_ROWS)}</tr>" for row in range(PAGE_ROWS))
    return "<table>\n" + "\n".join(rows) + "\n</table>\n"


def lines(*texts):
    return "".join(text + "\r\n" for text in texts)


TARGETS = lines(*["00:10:00,00:20:00,00:30:00,00:40:00,00:50:00"] * (LEVELS + 1))
TARGETS_OLD = lines(*["00:20:00,00:30:00,00:40:00,00:50:00"] * (LEVELS + 1))
TEMPLATE = lines("<table>", "%template2%", "<td>%lev_name%</td><td>%record1%</td>", "%template3%", "%ttt%",
                 "%template4%", "</table>")

# The files of a user who uses everything, by their path in the sandbox.
FILES = {
    "program/users.dat": lines("Marek", "Zoe"),
    "program/curUser.dat": lines("Marek"),
    "program/autolog.dat": lines(" 1 "),
    "program/targets.txt": TARGETS,
    "program/targets_old.txt": TARGETS_OLD,
    "program/history.txt": lines("2.1", "Faster."),
    "program/links.txt": lines("http://127.0.0.1/", "Home"),
    "program/stats.txt": statistics("Marek", 20),
    "program/friend.txt": statistics("Zoe", 30),
    "program/Marek/data.ini": lines("stats.txt", " 2 ", "friend.txt", "Good", " 9 "),
    "program/Marek/names.dat": lines("Marek", "Zoe", "Dust Devils"),
    "program/Marek/bugs.dat": lines("Player1", "07, 00:19:05", "Player2", "12, 00:41:30"),
    "program/Marek/view.dat": lines(*[f" {number} " for number in (30, 10, 9000, 9000, 900, 800, 700, 600, 500, 400)]),
    "program/Marek/1res.old": statistics("Marek", 40),
    "program/Marek/colors/colors.ini": lines(*[f" {number} " for number in range(1, 10)]),
    "program/Marek/colors/night.ini": lines(*[f" {number} " for number in range(11, 20)]),
    "program/Zoe/names.dat": lines("Zoe", "Player2", "Team"),
    "in/page.html": records_page(5),
    "in/template.ett": TEMPLATE,
    "out/report": "the report of last week\r\n",
}
FOLDERS = ["program", "program/Marek", "program/Marek/colors", "program/Zoe", "in", "out"]

# What a lock leaves behind means nothing.
LOCK = "program/kavo-timing.lock"


def user_files(changes=None):
    """FILES as bytes, changed: another text, or None for a file that is not there."""
    files = {**FILES, **(changes or {})}
    return {path: text.encode() for path, text in files.items() if text is not None}


def make(root, files):
    """Makes the folder anew with these files."""
    remove(root)
    os.mkdir(root)
    for folder in FOLDERS if files else []:
        os.mkdir(os.path.join(root, folder))
    for path, content in files.items():
        with open(os.path.join(root, path), "wb") as file:
            file.write(content)


def remove(root):
    """Also what is unreadable, and what is no folder."""
    if os.path.islink(root) or os.path.isfile(root):
        os.unlink(root)
    if not os.path.isdir(root):
        return
    for folder, _, _ in os.walk(root):
        os.chmod(folder, 0o700)
    shutil.rmtree(root)


def entry(path):
    """What stands at a path: the bytes of a file, and a text for everything else."""
    mode = os.lstat(path).st_mode
    if stat.S_ISLNK(mode):
        return "link to " + os.readlink(path)
    if stat.S_ISREG(mode):
        if not mode & 0o400:
            os.chmod(path, 0o600)
        with open(path, "rb") as file:
            return file.read()
    return "folder" if stat.S_ISDIR(mode) else "fifo" if stat.S_ISFIFO(mode) else "special"


def snapshot(root):
    """Everything in the folder by its path, but for the lock."""
    found = {}
    for folder, folders, files in os.walk(root):
        for name in folders + files:
            path = os.path.join(folder, name)
            found[os.path.relpath(path, root)] = entry(path)
    found.pop(LOCK, None)
    return found


def without_strangers(state, known):
    """A state as a key: what has a name of its own in every run (a temporary file) stands without it."""
    return tuple(sorted((path if path in known else "*", content if isinstance(content, str) else content.hex())
                        for path, content in state.items()))
