#!/bin/bash
# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

# Packs the sources into FOLDER/kavo-timing-VERSION.tar.xz, the same bytes from the same files wherever and whenever
# that is done. Usage: packaging/source_archive.sh FOLDER
set -euo pipefail
[ $# -eq 1 ] || {
    echo "Usage: packaging/source_archive.sh FOLDER" >&2
    exit 2
}
folder="$(realpath -m "$1")"
cd "$(dirname "$0")/.."
version="$(python3 -B packaging/releases.py version)"
name="kavo-timing-$version"

# In a checkout what is tracked, in unpacked sources everything but what was built.
files() {
    if [ -e .git ]; then
        git ls-files -z --cached --deduplicate
    else
        find . \( -path './build*' -o -path './obj-*' -o -path ./debian -o -path ./.pc -o -name __pycache__ \) -prune -o \
            \( -type f -o -type l \) -printf '%P\0'
    fi
}

mkdir -p "$folder"
files | LC_ALL=C sort -z |
    tar --create --format=gnu --transform="s,^,$name/,S" --mode=u=rwX,go=rX --owner=0 --group=0 --numeric-owner \
        --mtime="@$(python3 -B packaging/releases.py epoch)" \
        --no-recursion --verbatim-files-from --null --files-from=- |
    XZ_OPT='' xz -9 --threads=1 >"$folder/$name.tar.xz"
echo "$folder/$name.tar.xz"
