# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

"""Something else stands where the programs read and write: folders, pipes, links to nothing, what may not be read."""

import os
import socket
import stat

import sandbox
from judge import Expected, Place, surplus
from operations import all_operations, command, window

# A run of an operation takes a twentieth of a second; what takes so long waits for something.
PATIENCE = 20

# Everybody who reads looks at every obstacle.
READERS = [
    command("show", "show"),
    command("show-json", "show", "--json"),
    command("users", "users"),
    command("export-text", "export-text", "{root}/out/report"),
    command("export-html", "export-html", "--template", "{root}/in/template.ett", "{root}/out/report"),
    command("update-targets", "update-targets", "--page", "{root}/in/page.html"),
    window("start"),
    window("windows"),
]

# The operations that write a file.
WRITERS = {
    "program/users.dat": ["login-new"],
    "program/curUser.dat": ["login-known"],
    "program/autolog.dat": ["login-known", "change-user"],
    "program/targets.txt": ["update-targets"],
    "program/targets.bak": ["update-targets"],
    "program/targets_old.txt": ["update-targets"],
    "program/history.txt": [],
    "program/links.txt": [],
    "program/stats.txt": ["options-save"],
    "program/friend.txt": [],
    "program/tmp.bat": ["export-text-open"],
    "program/Marek": ["options-save", "view-save", "bugs-add", "rename", "resize", "login-known"],
    "program/Marek/data.ini": ["options-save-again", "view-font"],
    "program/Marek/names.dat": ["rename"],
    "program/Marek/1res.old": ["options-save", "options-clear"],
    "program/Marek/view.dat": ["resize"],
    "program/Marek/bugs.dat": ["bugs-add", "bugs-remove"],
    "program/Marek/colors": ["view-save", "view-scheme"],
    "program/Marek/colors/colors.ini": ["view-save", "view-default", "view-set"],
    "program/Marek/colors/colors_prev.ini": ["view-set"],
    "program/Marek/colors/night.ini": ["view-set"],
    "program/Marek/colors/mine.ini": ["view-scheme"],
    "program/kavo-timing.lock": [],
    "out/report": ["export-text", "export-html", "template-save"],
    "in/template.ett": [],
    "in/page.html": [],
}

UNREADABLE = "unreadable file"
NOWHERE = "nowhere"


def put_folder(path):
    os.mkdir(path)


def put_full_folder(path):
    os.mkdir(path)
    with open(os.path.join(path, "file"), "wb"):
        pass


def put_unreadable(path):
    with open(path, "wb") as file:
        file.write(b"secret")
    os.chmod(path, 0)


def put_socket(path):
    # A name of a socket must be short, that of the folder may be long.
    folder = os.open(os.path.dirname(path), os.O_RDONLY)
    with socket.socket(socket.AF_UNIX) as one:
        one.bind(f"/proc/self/fd/{folder}/{os.path.basename(path)}")
    os.close(folder)


OBSTACLES = {
    "folder": put_folder,
    "full folder": put_full_folder,
    "pipe": os.mkfifo,
    "link to nothing": lambda path: os.symlink(NOWHERE, path),
    "link to itself": lambda path: os.symlink(os.path.basename(path), path),
    "link to an endless device": lambda path: os.symlink("/dev/zero", path),
    "link to a full device": lambda path: os.symlink("/dev/full", path),
    UNREADABLE: put_unreadable,
    "socket": put_socket,
}


class Places:
    def __init__(self, programs, findings, place):
        self.programs = programs
        self.findings = findings
        self.place = place
        self._expected = {}

    def expected(self, operation, without=None):
        """An operation on its usual files, or where one of them is missing."""
        if without:
            operation = operation._replace(changes={**operation.changes, without: None})
        key = operation.name, without
        if key not in self._expected:
            self._expected[key] = Expected(self.programs, operation, self.place)
        return self._expected[key]

    def run(self, operation, path, kind):
        """An operation with an obstacle at a path."""
        expected = [self.expected(operation)]
        if kind != UNREADABLE:
            # What is no ordinary file may count as a file that is missing; one that holds something must not.
            expected.append(self.expected(operation, path))
        full = os.path.join(self.place.root, path)
        sandbox.make(self.place.root, operation.files())
        sandbox.remove(full)
        OBSTACLES[kind](full)
        obstacle = os.lstat(full)
        before = sandbox.snapshot(self.place.root)
        if not stat.S_ISLNK(obstacle.st_mode):
            os.chmod(full, obstacle.st_mode & 0o777)  # a look at what is unreadable has made it readable
        result = self.programs.run(self.programs.command(operation, self.place.root), self.place.root, PATIENCE)
        self.findings.count()
        where = f"{kind} at {path}, {operation.name}"
        if result.is_hanging or result.is_crash():
            self.findings.add("hangs" if result.is_hanging else "crashes", where, result.errors[-200:])
        if stat.S_ISLNK(obstacle.st_mode) and os.path.lexists(full) and not os.path.islink(full):
            self.findings.add("link replaced", where)
        if not result.is_hanging and not self._is_told(result, expected):
            for name in self._odd_files(before, path, expected):
                self.findings.add("file neither old nor new, and nothing told", where, name)
            # Where nothing is saved because a file is missing, the word is the same: it is one beyond the usual.
            if self._is_lost(kind, path, expected, result) and not surplus(result.boxes(), expected[0].result.boxes()):
                self.findings.add("user not told", where)

    @staticmethod
    def _is_told(result, expected):
        """Told more than without the obstacle."""
        return all(surplus(result.boxes(), one.result.boxes()) for one in expected)

    def _odd_files(self, before, path, expected):
        """Files that are neither as they were nor as they would be."""
        after = sandbox.snapshot(self.place.root)
        for name in sorted(set(before) | set(after)):
            states = [before.get(name)] + [state.get(name) for one in expected for state in one.states]
            is_own = name == path or name.startswith(path + "/") or os.path.basename(name) == NOWHERE
            if not is_own and after.get(name) not in states:
                yield name

    def _is_lost(self, kind, path, expected, result):
        """Whether something should have been saved there, and was not."""
        if "device" in kind or path in expected[0].operation.silent or "not reached" in result.out:
            return False
        full = os.path.join(self.place.root, path)
        if not os.path.lexists(full):
            return not any(path not in one.new for one in expected)
        if os.path.islink(full) and os.path.exists(full):  # written through
            full = os.path.realpath(full)
        should = [one.new.get(path) for one in expected if one.new.get(path) != one.old.get(path)]
        return bool(should) and sandbox.entry(full) not in should


# Previous results that are there stay.
SILENT_WHERE_UNREADABLE = ("program/Marek/1res.old",)


def is_ordinary(path, kind):
    """Whether nothing is odd about such a thing in such a place."""
    return (path in sandbox.FOLDERS and "folder" in kind) or (kind == UNREADABLE and path in SILENT_WHERE_UNREADABLE)


def run_places(programs, findings, folder):
    places = Places(programs, findings, Place(folder))
    by_name = {operation.name: operation for operation in all_operations()}
    for path, writers in WRITERS.items():
        with findings.part(f"something else at {path}"):
            for kind in OBSTACLES:
                if is_ordinary(path, kind):
                    continue
                for operation in READERS + [by_name[name] for name in writers]:
                    if programs.operations or not operation.is_window:
                        places.run(operation, path, kind)


def run_pipes(programs, findings, folder):
    """The short form: nobody waits for a pipe in place of any file."""
    place = Place(folder)
    with findings.part("pipes in place of files"):
        for path in WRITERS:
            for operation in READERS[:1] + READERS[-1:]:
                if not programs.operations and operation.is_window:
                    continue
                sandbox.make(place.root, operation.files())
                sandbox.remove(os.path.join(place.root, path))
                os.mkfifo(os.path.join(place.root, path))
                result = programs.run(programs.command(operation, place.root), place.root, PATIENCE)
                findings.count()
                if result.is_hanging or result.is_crash():
                    findings.add("hangs or crashes", f"pipe at {path}, {operation.name}", result.errors[-200:])
