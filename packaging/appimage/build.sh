#!/bin/bash
# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

# Makes FOLDER/kavo-timing-VERSION-MACHINE.AppImage: one file that runs on systems without Qt.
# Usage: packaging/appimage/build.sh FOLDER | --appdir FOLDER
#   --appdir   only the folder that goes into it, which is run by FOLDER/AppRun with the Qt of this system
#
# Needs linuxdeploy and its Qt plugin on the path (or named by LINUXDEPLOY), which gather Qt and pack the file. Build
# it on the oldest system that it is to run on. KAVO_PACKAGE_BUILD names a folder to compile in that is kept.
set -euo pipefail
appdir_only=
if [ "${1:-}" = --appdir ]; then
    appdir_only=1
    shift
fi
if [ $# -ne 1 ]; then
    sed -n '2,7s/^# //p' "$0" >&2
    exit 2
fi
folder="$(realpath -m "$1")"
cd "$(dirname "$0")/../.."
version="$(python3 -B packaging/releases.py version)"
SOURCE_DATE_EPOCH="$(python3 -B packaging/releases.py epoch)"
export SOURCE_DATE_EPOCH

linuxdeploy="${LINUXDEPLOY:-linuxdeploy}"
if [ -z "$appdir_only" ] && ! command -v "$linuxdeploy" >/dev/null; then
    echo "$linuxdeploy is missing, which packs an AppImage; LINUXDEPLOY names another." >&2
    exit 1
fi
work="$(mktemp -d)"
trap 'rm -rf "$work"' EXIT
build="${KAVO_PACKAGE_BUILD:-$work/build}"
appdir="$work/AppDir"
[ -z "$appdir_only" ] || appdir="$folder"

# The office's module is left out: the office itself lies outside and may be another version. No search path of a
# portable copy either, which may have been made in the same folder.
cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release -DKAVO_TESTS=OFF -DKAVO_LIBREOFFICE=OFF \
    -DCMAKE_INSTALL_RPATH= -DCMAKE_EXE_LINKER_FLAGS= >/dev/null
cmake --build "$build" >/dev/null
DESTDIR="$appdir" cmake --install "$build" --prefix /usr --strip >/dev/null
install -m 755 packaging/appimage/AppRun "$appdir/AppRun"
ln -sf usr/share/applications/kavo-timing.desktop "$appdir/kavo-timing.desktop"
ln -sf usr/share/icons/hicolor/256x256/apps/kavo-timing.png "$appdir/kavo-timing.png"
ln -sf kavo-timing.png "$appdir/.DirIcon"
if [ -n "$appdir_only" ]; then
    echo "$appdir"
    exit
fi

mkdir -p "$folder"
OUTPUT="$folder/kavo-timing-$version-$(uname -m).AppImage"
export OUTPUT LINUXDEPLOY_OUTPUT_VERSION="$version"
"$linuxdeploy" --appdir "$appdir" --executable "$appdir/usr/bin/kavo-timing" \
    --executable "$appdir/usr/bin/kavo-timing-cli" --desktop-file "$appdir/usr/share/applications/kavo-timing.desktop" \
    --custom-apprun packaging/appimage/AppRun --plugin qt --output appimage
echo "$OUTPUT"
