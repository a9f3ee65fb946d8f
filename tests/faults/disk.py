# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

"""Saving on a disk that has no room left."""

import os

import sandbox
from judge import Judge, Place

# Little enough for a disk of 16 pages: every file takes one.
SMALL = {
    "program/history.txt": None,
    "program/links.txt": None,
    "program/friend.txt": None,
    "program/Zoe/names.dat": None,
    "program/Marek/1res.old": None,
    "program/Marek/data.ini": sandbox.lines("stats.txt", " 3 ", "", "Good", " 9 "),
}
PAGE = 4096
MOST_BYTES = [0, 1, 100, 2000]


def small(operation):
    changes = {**SMALL, **operation.changes}
    if not any("template" in argument for argument in operation.arguments):
        changes["in/template.ett"] = None
    if "update-targets" not in operation.name:
        changes["in/page.html"] = None
    return operation._replace(changes=changes)


class Filler:
    """A file that leaves so many pages of the disk free."""

    def __init__(self, disk):
        self.disk = disk
        self.path = os.path.join(disk, "filler")

    def free_pages(self):
        return os.statvfs(self.disk).f_bavail * os.statvfs(self.disk).f_bsize // PAGE

    def leave(self, pages):
        with open(self.path, "wb") as file:
            file.write(b"x" * PAGE * (self.free_pages() - pages))

    def remove(self):
        if os.path.exists(self.path):
            os.unlink(self.path)


def run_on_small_disk(programs, findings, operations, disk):
    """Every operation with nothing free, one page free and so on, until there is room for all of it."""
    place, filler = Place(disk), Filler(disk)
    place.log = os.devnull
    for operation in map(small, operations):
        filler.remove()
        judge = Judge(programs, findings, operation, place)
        sandbox.make(place.root, operation.files())
        for pages in range(filler.free_pages()):
            filler.remove()
            sandbox.make(place.root, operation.files())
            filler.leave(pages)
            result = programs.run(programs.command(operation, place.root), place.root)
            judge.judge(f"{operation.name} with {pages} pages free", result, place, make_room=filler.remove)
    filler.remove()
    sandbox.remove(place.root)


def run_with_limit(programs, findings, operations, folder):
    """Every operation where no file may be longer than a few bytes: as an error, then as the signal's end."""
    place = Place(folder)
    for operation in operations:
        judge = Judge(programs, findings, operation, place)
        for size in MOST_BYTES:
            for is_ended in (False, True):
                sandbox.make(place.root, operation.files())
                command = ["prlimit", f"--fsize={size}", *programs.command(operation, place.root)]
                # This interpreter ignores the signal, and hands that on where it is told to.
                result = programs.run(command, place.root, restore_signals=is_ended)
                name = f"{operation.name} with files of {size} bytes at most" + (", ended" if is_ended else "")
                judge.judge(name, result, place, is_killed=is_ended and result.status < 0)
