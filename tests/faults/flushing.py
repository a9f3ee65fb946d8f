# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

"""What a power cut would find: whether files are on the disk before they take another's place."""

import os
import re

# Written at every step of a resize: flushed at the end only.
LAYOUT = "view.dat"


def path_of_descriptor(text):
    match = re.match(r"\w+\(\d+<([^>]*)>", text)
    return match.group(1) if match else None


def renamed(text):
    """From and to, of a call that renames."""
    return re.findall(r'"([^"]*)"', text)[:2]


def faults_of_flushing(calls):
    """From the calls of an operation that went well."""
    unflushed = set()
    # Names whose folder has not been flushed since they came to be.
    unflushed_names = set()
    for call in calls:
        path = path_of_descriptor(call.text)
        if call.name in ("write", "pwrite64", "writev", "copy_file_range", "sendfile"):
            unflushed.add(path)
        elif call.name in ("fsync", "fdatasync", "syncfs"):
            unflushed.discard(path)
            unflushed_names = {name for name in unflushed_names if os.path.dirname(name) != path}
        elif call.name.startswith("rename"):
            source, target = renamed(call.text)
            if source in unflushed and not target.endswith(LAYOUT):
                yield "renamed before it is on the disk", target
            if target.endswith("/targets.txt") and any("targets.bak" in name for name in unflushed | unflushed_names):
                yield "targets replaced before their backup is on the disk", target
            (unflushed.add if source in unflushed else unflushed.discard)(target)
            unflushed.discard(source)
            unflushed_names.add(target)
    for path in sorted(path for path in unflushed | unflushed_names if path):
        yield "not on the disk at the end", path
