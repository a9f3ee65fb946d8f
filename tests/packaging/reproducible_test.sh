#!/bin/bash
# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

# Builds the Debian packages and the portable copy twice, in different folders, at different times and with different
# locales, time zones and rights of new files, and compares what comes out byte for byte.
# Usage: reproducible_test.sh FOLDER       leaves one set of packages in FOLDER
# KAVO_PACKAGE_BUILD names a folder to compile the first portable copy in that is kept.
# shellcheck disable=SC2030,SC2031  # each build has an environment of its own
set -euo pipefail
[ $# -eq 1 ] || {
    sed -n '2,5s/^# //p' "$0" >&2
    exit 2
}
folder="$(realpath -m "$1")"
sources="$(cd "$(dirname "$0")/../.." && pwd)"
other="$(mktemp -d)"
trap 'rm -rf "$other"' EXIT
export CCACHE_DISABLE=1 # what was compiled once proves nothing the second time
first_build="${KAVO_PACKAGE_BUILD:-}"
unset KAVO_PACKAGE_BUILD

# build FOLDER SOURCES: everything, in a folder for passing files that is named after nothing else.
build() {
    mkdir -p "$1"
    DEB_BUILD_OPTIONS=nocheck "$2/packaging/debian_package.sh" "$1"
    "$2/packaging/portable/build.sh" "$1" >/dev/null
}

echo "== Built once"
(
    umask 022
    export LC_ALL=C.UTF-8 TZ=UTC KAVO_PACKAGE_BUILD="$first_build"
    build "$folder" "$sources"
)

echo "== Built again"
# From the source archive, in a folder of a longer name, in another country.
version="$(python3 -B "$sources/packaging/releases.py" version)"
place="$other/quite-another-place-with-a-longer-name"
mkdir "$place" "$other/locales"
tar -C "$place" -xf "$folder/kavo-timing-$version.tar.xz"
localedef -i et_EE -f UTF-8 "$other/locales/et_EE.UTF-8"
(
    umask 027
    export LOCPATH="$other/locales" LC_ALL=et_EE.UTF-8 TZ=Pacific/Kiritimati TMPDIR="$place"
    build "$other/packages" "$place/kavo-timing-$version"
)

echo "== Compared"
failures=0
compared=0
for first in "$folder"/*.deb "$folder"/*.tar.xz "$folder"/*.dsc; do
    second="$other/packages/$(basename "$first")"
    compared=$((compared + 1))
    if cmp "$first" "$second"; then
        echo "the same: $(basename "$first")"
    else
        failures=$((failures + 1))
        diffoscope --max-text-report-size 20000 "$first" "$second" 2>&1 | head -100 || true
    fi
done
[ "$failures" -eq 0 ] && [ "$compared" -ge 6 ]
