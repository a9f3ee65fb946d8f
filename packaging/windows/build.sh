#!/bin/bash
# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

# Makes kavo-timing-VERSION-windows.zip: one folder to unzip anywhere, which is the program folder.
# Usage: packaging/windows/build.sh [--qt FOLDER] [--output FOLDER]
#   --qt FOLDER       static Qt for Windows; without it the one in ~/.cache/kavo-timing, built there first if it is not
#                     there, which takes about half an hour
#   --output FOLDER   for the zip (default: build-windows-package)
# KAVO_PACKAGE_BUILD names a folder to compile in that is kept; without it one is made and removed.
set -euo pipefail
cd "$(dirname "$0")/../.."
# shellcheck source=tools/setup.sh
. tools/setup.sh
# shellcheck source=packaging/windows/qt.sh
. packaging/windows/qt.sh

usage() {
    sed -n '2,8s/^# //p' packaging/windows/build.sh
}
qt=
output="build-windows-package"
while [ $# -gt 0 ]; do
    case "$1" in
    --help | -h)
        usage
        exit 0
        ;;
    --qt | --output)
        [ $# -ge 2 ] || {
            usage >&2
            exit 2
        }
        [ "$1" = --output ] && output="$2" || qt="$2"
        shift 2
        ;;
    *)
        usage >&2
        exit 2
        ;;
    esac
done
output="$(realpath -m "$output")"

install_packages run windows
if [ -z "$qt" ]; then
    qt="$(cached_qt)"
    [ -d "$qt" ] || packaging/windows/build_qt.sh "$qt"
fi
qt="$(realpath "$qt")"

version="$(python3 -B packaging/releases.py version)"
SOURCE_DATE_EPOCH="$(python3 -B packaging/releases.py epoch)"
export SOURCE_DATE_EPOCH
name="kavo-timing-$version-windows"
largest=9000000 # bytes of the zip
work="$(mktemp -d)"
trap 'rm -rf "$work"' EXIT
build="${KAVO_PACKAGE_BUILD:-$work/build}"
mkdir -p "$output"

# quietly COMMAND...: what it says is shown when it fails.
quietly() {
    "$@" >"$work/log" 2>&1 || {
        tail -n 60 "$work/log" >&2
        exit 1
    }
}

options=(-DCMAKE_BUILD_TYPE=Release)
[ -e "$build/CMakeCache.txt" ] || options+=(-DKAVO_TESTS=OFF)
configure_for_windows "$qt" "$build" "${options[@]}"
quietly cmake --build "$build" --target kavo-timing kavo-timing-cli

tree="$work/$name"
mkdir "$tree"
for program in kavo-timing kavo-timing-cli; do
    x86_64-w64-mingw32-strip -o "$tree/$program.exe" "$build/bin/$program.exe"
done
python3 -B packaging/windows/check_imports.py "$tree"/*.exe

cp data/*.txt "$tree"
for supplied in templates schemes; do
    [ ! -d "data/$supplied" ] || cp -r "data/$supplied" "$tree"
done
packaging/demo_folder.sh "$tree/demo"
python3 -B packaging/guide.py "$tree/guide"
# Half of what a picture of many colours takes; nobody sees the difference.
pngquant --strip --force --skip-if-larger --quality=80-100 --ext .png 256 "$tree"/guide/images/*.png
quietly advpng --recompress --shrink-normal "$tree"/guide/images/*.png
packaging/windows/licences.sh "$tree/licences"
# The lines of Windows, which its old editor and its interpreter of commands need.
sed 's/$/\r/' packaging/windows/dashboard.cmd >"$tree/dashboard.cmd"
sed -e "s/@VERSION@/$version/" -e 's/$/\r/' packaging/windows/README.txt >"$tree/README.txt"

python3 -B packaging/windows/make_zip.py "$tree" "$work/$name.zip"
quietly advzip --recompress --shrink-extra "$work/$name.zip"
size="$(stat -c %s "$work/$name.zip")"
[ "$size" -le "$largest" ] || {
    echo "$name.zip has $size bytes, more than $largest" >&2
    exit 1
}
mv "$work/$name.zip" "$output/$name.zip"
echo "$output/$name.zip"
