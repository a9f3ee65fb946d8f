#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

"""Packs a folder, so that the same files give the same bytes. Usage: make_zip.py FOLDER ZIP

SOURCE_DATE_EPOCH in the environment is the time that all files bear.
"""

import os
import pathlib
import sys
import time
import zipfile

EARLIEST = (1980, 1, 1, 0, 0, 0)  # that the format knows


def moment():
    return max(EARLIEST, time.gmtime(int(os.environ["SOURCE_DATE_EPOCH"]))[:6])


def main():
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    folder = pathlib.Path(sys.argv[1])
    when = moment()
    unfinished = pathlib.Path(sys.argv[2] + ".new")
    with zipfile.ZipFile(unfinished, "w", zipfile.ZIP_DEFLATED, compresslevel=9) as packed:
        for path in sorted(path for path in folder.rglob("*") if path.is_file()):
            entry = zipfile.ZipInfo((folder.name / path.relative_to(folder)).as_posix(), when)
            entry.compress_type = zipfile.ZIP_DEFLATED
            entry.external_attr = 0o644 << 16
            packed.writestr(entry, path.read_bytes())
    unfinished.replace(sys.argv[2])


if __name__ == "__main__":
    main()
