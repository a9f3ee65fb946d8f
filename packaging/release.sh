#!/bin/bash
# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

# Makes everything that a release consists of: source archive, Debian packages, portable copy, the Windows zip where
# its Qt is there, the note of changes, and the sums of them all.
# Usage: packaging/release.sh [--unfinished] [FOLDER]     (default: build-release)
#   --unfinished   also from a checkout with changes that are not committed
set -euo pipefail
cd "$(dirname "$0")/.."
unfinished=
if [ "${1:-}" = --unfinished ]; then
    unfinished=1
    shift
fi
if [ $# -gt 1 ] || [ "${1#-}" != "${1:-}" ]; then
    sed -n '2,5s/^# //p' packaging/release.sh >&2
    exit 2
fi
folder="$(realpath -m "${1:-build-release}")"

if [ -z "$unfinished" ] && [ -e .git ] && [ -n "$(git status --porcelain)" ]; then
    echo "There are changes that are not committed; a release is made of what is." >&2
    exit 1
fi
version="$(python3 -B packaging/releases.py version)"
if [ ! -d "tests/upgrades/$version" ]; then
    echo "tests/upgrades/$version is missing: tests/upgrades/record.sh makes it." >&2
    exit 1
fi
if [ -d "$folder" ] && [ -n "$(ls -A "$folder")" ]; then
    echo "$folder is not empty." >&2
    exit 1
fi
mkdir -p "$folder"

echo "== Sources and Debian packages"
packaging/debian_package.sh "$folder"
echo "== Portable copy"
packaging/portable/build.sh "$folder" >/dev/null
if [ -x packaging/windows/build.sh ] && [ -d "${XDG_CACHE_HOME:-$HOME/.cache}/kavo-timing" ]; then
    echo "== Windows"
    packaging/windows/build.sh --output "$folder"
else
    echo "== Windows: left out, its Qt is not there"
fi
python3 -B packaging/releases.py notes >"$folder/kavo-timing-$version.txt"

rm -f "$folder"/*.log
cd "$folder"
sums="$(find . -type f -printf '%P\0' | LC_ALL=C sort -z | xargs -0 sha256sum)"
echo "$sums" | tee SHA256SUMS
