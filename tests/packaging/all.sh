#!/bin/bash
# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

# Makes all packages and tries them (./test.sh --packages): twice the same, without a complaint of lintian, in a root
# with nothing else in it, and from a folder of any name. Takes a while; needs root and Debian's archive.
# Usage: tests/packaging/all.sh [FOLDER]     (default: build-packages, which is made anew)
set -euo pipefail
cd "$(dirname "$0")/../.."
folder="$(realpath -m "${1:-build-packages}")"
failed=()
xvfb=

finish() {
    [ -z "$xvfb" ] || kill "$xvfb" 2>/dev/null || true
}
trap finish EXIT

# stage NAME COMMAND...
stage() {
    local name="$1" start=$SECONDS
    shift
    echo "=== $name"
    "$@" || failed+=("$name")
    echo "=== $name: $((SECONDS - start)) s"
}

start_display() {
    local number_file display=
    number_file="$(mktemp)"
    Xvfb -displayfd 3 -screen 0 1280x1024x24 -nolisten tcp 3>"$number_file" 2>/dev/null &
    xvfb=$!
    for _ in $(seq 100); do
        display="$(cat "$number_file")"
        [ -z "$display" ] || break
        sleep 0.1
    done
    rm -f "$number_file"
    [ -n "$display" ] || return 1
    export DISPLAY=":$display"
}

lint() {
    local found status=0
    found="$(lintian --allow-root --fail-on error,warning --display-info --display-experimental --pedantic \
        --tag-display-limit 0 "$folder"/*.changes)" || status=$?
    [ -z "$found" ] || echo "$found"
    return "$status"
}

# What is written for packagers of other kinds, as far as it can be tried without their tools.
others() {
    local appdir="$folder/AppDir"
    packaging/appimage/build.sh --appdir "$appdir" >/dev/null &&
        [ "$("$appdir/AppRun" --version)" = "$("$appdir/usr/bin/kavo-timing-cli" --version)" ] &&
        [ -f "$appdir/kavo-timing.desktop" ] && [ -f "$appdir/kavo-timing.png" ] &&
        appstreamcli validate-tree --no-net "$appdir/usr" &&
        python3 -B tests/packaging/flatpak_test.py "$appdir/usr"
}

if [ "$(id -u)" -ne 0 ]; then
    echo "The packages are installed in a root of their own: start this as root." >&2
    exit 1
fi
rm -rf "$folder"
# Of the portable copy and the folder of the AppImage, which differ in little.
export KAVO_PACKAGE_BUILD="$folder/build"
stage "built twice" tests/packaging/reproducible_test.sh "$folder"
stage "lintian" lint
stage "portable copy" python3 -B tests/packaging/portable_test.py \
    "$(find "$folder" -name 'kavo-timing-*-linux-*.tar.xz')"
stage "other packagers" others
start_display
stage "clean root" tests/packaging/clean_root_test.sh "$folder"
if [ "${#failed[@]}" -gt 0 ]; then
    printf 'FAILED: %s\n' "${failed[@]}"
    exit 1
fi
echo "All packages are fine: $folder"
