# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

"""Folders that vanish under the running program, and arguments that name nothing."""

import os

import sandbox
from judge import Place
from operations import command, window

PATIENCE = 20

# Operations that save in the user's folder or beside it, and so must fail with a word once it is gone.
IN_USER_FOLDER = ["options-save", "view-save", "view-default", "view-font", "bugs-add", "bugs-remove", "rename"]
IN_PROGRAM_FOLDER = [*IN_USER_FOLDER, "change-user", "update-targets"]
# These save elsewhere, nothing at all, or nothing that a user would miss.
OTHERS = ["windows", "options-clear", "view-set", "view-scheme", "resize", "export-text", "export-html",
          "template-save"]

ARGUMENTS = [
    # arguments, exit statuses that are right
    (("--user", "", "show"), {2}),
    (("--user", "nobody", "show"), {1}),
    (("--user", "../Marek", "show"), {1, 2}),
    (("--user", "x" * 5000, "show"), {1, 2}),
    (("--user", "\udcff\udcfe", "show"), {1}),
    (("export-text", ""), {1, 2}),
    (("export-text", "x" * 5000), {1}),
    (("export-text", "{root}/no/folder/report"), {1}),
    (("export-text", "{root}/out"), {1}),
    (("export-html", "--template", "", "{root}/out/report"), {1, 2}),
    (("export-html", "--template", "{root}/in", "{root}/out/report"), {1}),
    (("update-targets", "--page", ""), {1, 2}),
    (("update-targets", "--page", "{root}/in"), {1}),
    (("update-targets", "--page", "x" * 5000), {1}),
    (("--program-folder", "", "show"), {1, 2}),
    (("--program-folder", "{root}/out/report", "show"), {1, 2}),
    (("--program-folder", "x" * 5000, "show"), {1, 2}),
]


def run_vanishing_folders(programs, findings, place):
    for folder, failing in (("remove-user-folder", IN_USER_FOLDER), ("remove-program-folder", IN_PROGRAM_FOLDER)):
        for save in IN_PROGRAM_FOLDER + OTHERS:
            operation = window(save)
            sandbox.make(place.root, operation.files())
            both = operation._replace(steps=(folder, save))
            result = programs.run(programs.command(both, place.root), place.root, PATIENCE)
            findings.count()
            where = f"{folder}, then {save}"
            if result.is_hanging or result.is_crash() or f"done: {save}" not in result.out:
                findings.add("crashes or hangs", where, f"exit status {result.status} {result.errors[-200:]}")
            if save in failing and not result.boxes():
                findings.add("user not told", where)


def run_without_working_folder(programs, findings, place):
    """The command line in a folder that is deleted by the time it starts."""
    script = 'mkdir "$0" && cd "$0" && rmdir "$0" && exec "$@"'
    for arguments, status in ((("show",), 0), (("export-text", "report"), 1), (("export-text", "{root}/out/new"), 0),
                              (("update-targets", "--page", "page.html"), 1)):
        operation = command("gone", *arguments)
        sandbox.make(place.root, operation.files())
        gone = ["sh", "-c", script, os.path.join(place.root, "gone"), *programs.command(operation, place.root)]
        result = programs.run(gone, place.root, PATIENCE)
        findings.count()
        if result.is_hanging or result.status != status or (status == 1 and not result.errors):
            findings.add("deleted working folder", " ".join(arguments), f"exit status {result.status} {result.errors}")


def run_odd_arguments(programs, findings, place):
    for arguments, statuses in ARGUMENTS:
        operation = command("arguments", *arguments)
        sandbox.make(place.root, operation.files())
        before = sandbox.snapshot(place.root)
        result = programs.run(programs.command(operation, place.root), place.root, PATIENCE)
        findings.count()
        where = " ".join(argument[:20] for argument in arguments)
        if result.is_hanging or result.status not in statuses or not result.errors:
            findings.add("odd argument", where, f"exit status {result.status} {result.errors[-200:]}")
        if sandbox.snapshot(place.root) != before:
            findings.add("odd argument changes files", where)


def run_pipe_with_reader(programs, findings, place):
    """A report may go into a pipe that somebody reads."""
    operation = command("export-text", "export-text", "{root}/out/report")
    sandbox.make(place.root, operation.files())
    programs.run(programs.command(operation, place.root), place.root)
    report = os.path.join(place.root, "out/report")
    expected = sandbox.entry(report)
    os.unlink(report)
    os.mkfifo(report)
    reader = programs.start(["cat", report], place.root)
    result = programs.run(programs.command(operation, place.root), place.root, PATIENCE)
    read = programs.finish(reader, PATIENCE)
    findings.count()
    if result.status != 0 or read.out.encode() != expected:
        findings.add("report into a pipe", "export-text", f"exit status {result.status} {result.errors}")


def run_gone(programs, findings, folder):
    place = Place(folder)
    with findings.part("folders that are gone, odd arguments"):
        run_without_working_folder(programs, findings, place)
        run_odd_arguments(programs, findings, place)
        run_pipe_with_reader(programs, findings, place)
        if programs.operations:
            run_vanishing_folders(programs, findings, place)
