#!/bin/bash
# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

# Makes the Debian source package and the packages of this machine's architecture.
# Usage: packaging/debian_package.sh FOLDER [DPKG-BUILDPACKAGE-OPTION...]
# DEB_BUILD_OPTIONS=nocheck leaves the tests out.
set -euo pipefail
[ $# -ge 1 ] || {
    sed -n '2,4s/^# //p' "$0" >&2
    exit 2
}
folder="$(realpath -m "$1")"
shift
cd "$(dirname "$0")/.."
version="$(python3 -B packaging/releases.py version)"
SOURCE_DATE_EPOCH="$(python3 -B packaging/releases.py epoch)"
export SOURCE_DATE_EPOCH
umask 022 # of files and folders in the packages

work="$(mktemp -d)"
trap 'rm -rf "$work"' EXIT
mkdir -p "$folder"
archive="$(packaging/source_archive.sh "$folder")"
cp "$archive" "$work/kavo-timing_$version.orig.tar.xz"
tar -C "$work" -xf "$archive"
tree="$work/kavo-timing-$version"
cp -r "$tree/packaging/debian" "$tree/debian"
python3 -B packaging/releases.py changelog >"$tree/debian/changelog"

(cd "$tree" && dpkg-buildpackage --no-sign "$@") >"$folder/kavo-timing_debian.log" 2>&1 || {
    tail -n 60 "$folder/kavo-timing_debian.log" >&2
    exit 1
}
find "$work" -maxdepth 1 -type f -exec mv -t "$folder" {} +
