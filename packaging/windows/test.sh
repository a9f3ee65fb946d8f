#!/bin/bash
# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

# Builds the Windows program and its tests, runs them under Wine, makes the package, unpacks it and uses it.
# Usage: packaging/windows/test.sh [--short] [--qt FOLDER] [RESULTS]
#   --short       neither the tests of the windows nor many random program folders
#   --qt FOLDER   static Qt for Windows; without it the one that build.sh makes
#   RESULTS       folder for the results of the tests (default: build-windows-qt/results)
# Pictures of all windows of the unpacked program are kept in build-windows-qt/pictures.
set -euo pipefail
cd "$(dirname "$0")/../.."
# shellcheck source=tools/setup.sh
. tools/setup.sh
# shellcheck source=tools/wine.sh
. tools/wine.sh
# shellcheck source=tools/display.sh
. tools/display.sh
# shellcheck source=packaging/windows/qt.sh
. packaging/windows/qt.sh

short=
if [ "${1:-}" = --short ]; then
    short=1
    shift
fi
qt="$(cached_qt)"
if [ "${1:-}" = --qt ] && [ $# -ge 2 ]; then
    qt="$(realpath "$2")"
    shift 2
fi
if [ $# -gt 1 ] || [[ "${1:-}" == -* ]]; then
    sed -n '5,10s/^# //p' packaging/windows/test.sh >&2
    exit 2
fi
build="$PWD/build-windows-qt"
results="$(realpath -m "${1:-$build/results}")"
mkdir -p "$build/pictures" "$results"

install_packages run test windows
[ -d "$qt" ] || packaging/windows/build_qt.sh "$qt"
configure_for_windows "$qt" "$build" -DCMAKE_BUILD_TYPE=Release -DKAVO_TESTS=ON
targets=(kavo-timing kavo-timing-cli kavo_windows_tests kavo_recording_application)
[ -n "$short" ] || targets+=(kavo_window_tests)
cmake --build "$build" -j "$(nproc)" --target "${targets[@]}" >"$build/build.log" 2>&1 || {
    grep -vE '^\[[0-9]+/[0-9]+\]' "$build/build.log" | head -100 >&2
    exit 1
}
# This system's own, to compare with.
configure build-core --preset core
cmake --build build-core -j "$(nproc)" --target kavo-timing-cli >"$build/core.log" 2>&1 || {
    tail -n 60 "$build/core.log" >&2
    exit 1
}

start_wine "$build/wine"
package=
trap '[ -z "$package" ] || kill "$package" 2>/dev/null || true; end_wine; end_display' EXIT
start_display # before the first program: a Windows that begins without a display never has one
make_wine

failed=0

# run_tests NAME SECONDS PROGRAM ARGUMENT...: all tests but those that tests/windows_omissions.txt gives a reason for.
run_tests() {
    local name="$1" seconds="$2" stale
    shift 2
    echo "-- $name"
    stale="$(stale_omissions "$name" "$@")"
    [ -z "$stale" ] || {
        echo "tests/windows_omissions.txt names no tests: $stale"
        failed=1
    }
    rm -f "$results/windows-$name.xml"
    in_wine "$seconds" "$@" --gtest_brief=1 --gtest_filter="-$(omitted_tests "$name")" \
        "--gtest_output=xml:Z:$results/windows-$name.xml" >"$build/$name.log" 2>&1 || {
        tail -n 60 "$build/$name.log"
        failed=1
    }
}

# It takes the processors, the tests mostly wait for Wine.
KAVO_PACKAGE_BUILD="$build" packaging/windows/build.sh --qt "$qt" --output "$build/package" >"$build/package.log" 2>&1 &
package=$!
run_tests plain 900 "$build/tests/kavo_windows_tests.exe"
folders=20
if [ -z "$short" ]; then
    run_tests offscreen 1800 "$build/tests/kavo_window_tests.exe" -platform offscreen
    run_tests windows 1800 "$build/tests/kavo_window_tests.exe" -platform windows
    folders=300
fi

echo "-- package"
wait "$package" || {
    cat "$build/package.log"
    exit 1
}
package=
python3 -B packaging/windows/drive.py "$build/package"/kavo-timing-*-windows.zip "$wine" build-core/bin/kavo-timing-cli \
    "$build/tests/kavo_recording_application.exe" --pictures "$build/pictures" || failed=1
python3 -B tests/oracle/compare_systems.py build-core/bin/kavo-timing-cli "$wine" "$build/bin/kavo-timing-cli.exe" \
    --count "$folders" || failed=1
exit "$failed"
