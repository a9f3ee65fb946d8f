#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

"""Joins PNG pictures of several sizes into one icon of Windows. Usage: make_icon.py ICON PNG..."""

import pathlib
import struct
import sys

# Of the file: reserved, an icon, how many; of each picture: width, height, colours, reserved, planes, bits, size, place.
HEAD = struct.Struct("<HHH")
ENTRY = struct.Struct("<BBBBHHII")


def icon_of(pictures):
    entries = b""
    place = HEAD.size + ENTRY.size * len(pictures)
    for picture in pictures:
        width, height = struct.unpack_from(">II", picture, 16)
        entries += ENTRY.pack(width % 256, height % 256, 0, 0, 1, 32, len(picture), place)  # 256 is written as 0
        place += len(picture)
    return HEAD.pack(0, 1, len(pictures)) + entries + b"".join(pictures)


def main():
    if len(sys.argv) < 3:
        sys.exit(__doc__)
    pathlib.Path(sys.argv[1]).write_bytes(icon_of([pathlib.Path(png).read_bytes() for png in sys.argv[2:]]))


if __name__ == "__main__":
    main()
