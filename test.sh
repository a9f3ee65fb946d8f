#!/bin/bash
# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

# Builds and tests Kavo Timing. --help tells the options.
set -euo pipefail
cd "$(dirname "$0")"
# shellcheck source=tools/setup.sh
. tools/setup.sh
# shellcheck source=tools/display.sh
. tools/display.sh
# shellcheck source=packaging/windows/qt.sh
. packaging/windows/qt.sh

usage() {
    cat <<'TEXT'
Usage: ./test.sh [OPTION]
Without an option everything is built and tested: with the address and undefined-behaviour sanitizers, without a
display and, the windows, on a virtual one with a window manager, where base/ and core/ must be covered; for Windows,
under Wine, as far as there is time. The release is built, and once more without Qt; clang-tidy reads what the branch changes.

  --quick          only a plain build, without a display
  --sanitize       only the build with the sanitizers
  --coverage       only the build without Qt, with the line coverage of base/ and core/; fails below 95 %
  --display        only the windows on a virtual display
  --release        only the build of the programs as they are given away
  --windows        only the Windows program: all of its tests and its package; without Qt for Windows this builds it
                   first, which takes about half an hour
  --fuzz SECONDS   every fuzz target for so long
  --fuzz COUNT runs [TARGET...]
                   every fuzz target, or those named, on so many inputs
  --faults [--sanitize] [OPTION...]
                   killed at every step of every save, every system call failing, full disks, odd and huge files;
                   with the sanitizers on request. Options are those of tests/faults/run.py (--help)
  --lint           clang-tidy over all sources
  --pages          web pages in a real browser (installs Chromium)
  --packages       makes the packages twice, compares, installs and starts them (as root; takes long)
  --help           this text
TEXT
}

jobs="$(getconf _NPROCESSORS_ONLN)"
results="$PWD/build-results"

# Says how it went, also when a stage could not be built.
finish() {
    local status=$?
    python3 -B tools/sum_results.py "$results" || [ "$status" -ne 0 ] || status=1
    exit "$status"
}

# build FOLDER CMAKE-OPTION...
build() {
    local folder="$1"
    configure "$@" || return 1
    cmake --build "$folder" -j "$jobs" >"$folder/build.log" 2>&1 || {
        grep -vE '^\[[0-9]+/[0-9]+\]' "$folder/build.log" | head -100 >&2
        return 1
    }
}

# run_tests STAGE FOLDER CTEST-OPTION...: failing tests are counted at the end, other stages still run.
run_tests() {
    local stage="$1" folder="$2"
    shift 2
    ctest --test-dir "$folder" --output-on-failure --output-junit "$results/$stage.xml" "$@" \
        >"$folder/tests.log" 2>&1 ||
        grep -vE '^ *[0-9]+/[0-9]+ Test .*(Passed|Skipped)|^ *Start ' "$folder/tests.log" | head -1000 || true
    [ -s "$results/$stage.xml" ]
}

# run_suites STAGE JOBS PROGRAM...: the same of GoogleTest programs, with a process for each suite: ctest starts one for
# each test, and with the sanitizers that is most of the time.
run_suites() {
    local stage="$1 suites" suites_at_once="$2"
    shift 2
    python3 -B tools/run_suites.py --jobs "$suites_at_once" "$results/$stage.xml" "$@" >"$results/$stage.log" 2>&1 ||
        head -1000 "$results/$stage.log"
    [ -s "$results/$stage.xml" ]
}

# run_everything STAGE FOLDER LABELS: all tests but those with a label that the expression names.
run_everything() {
    local stage="$1" folder="$2" programs=("$2/tests/kavo_tests")
    [ ! -x "$folder/tests/kavo_window_tests" ] || programs+=("$folder/tests/kavo_window_tests")
    run_suites "$stage" "$jobs" "${programs[@]}" &&
        run_tests "$stage" "$folder" -j "$jobs" --label-exclude "^(units|windows${3:+|$3})\$"
}

# stage NAME FUNCTION: a stage that cannot be built counts as one failure.
stage() {
    echo "== $1"
    "$2" "$1" || touch "$results/$1.failed"
}

plain() {
    build build-dev --preset dev && QT_QPA_PLATFORM=offscreen run_everything "$1" build-dev
}

# Where Chromium is installed, every run of the tests does this, too.
pages() {
    build build-dev --preset dev && run_tests "$1" build-dev -L pages
}

build_sanitized() {
    build build-asan --preset asan -DKAVO_COVERAGE=ON -DKAVO_BENCH=ON
}

test_sanitized() {
    find build-asan -name '*.gcda' -delete
    QT_QPA_PLATFORM=offscreen ASAN_OPTIONS=detect_leaks=1:strict_string_checks=1 UBSAN_OPTIONS=print_stacktrace=1 \
        LSAN_OPTIONS="suppressions=$PWD/tools/leaks.supp:print_suppressions=0" \
        run_everything "$1" build-asan || return 1
    covered build-asan
}

sanitized() {
    build_sanitized && test_sanitized "$1"
}

# covered FOLDER: whether what has run there has met nearly every line of base/ and core/.
covered() {
    # What cannot be told of a branch is nothing about its line.
    gcovr --root . --filter 'base/' --filter 'core/' --exclude-throw-branches --gcov-ignore-parse-errors \
        --object-directory "$1" --print-summary --fail-under-line 95 "$1" >"$1/coverage.log" 2>&1 && touch "$results/coverage.passed" && return
    cat "$1/coverage.log"
    touch "$results/coverage.failed"
}

# Everything that needs no Qt builds without it. The same sources have been tested with the sanitizers.
without_qt() {
    build build-core --preset core -DKAVO_TESTS=OFF || return 1
    timeout 60 build-core/bin/kavo-timing-cli --version && touch "$results/$1.passed"
}

coverage() {
    build build-core --preset core -DKAVO_TESTS=ON -DKAVO_COVERAGE=ON || return 1
    find build-core -name '*.gcda' -delete
    run_everything "$1" build-core sources || return 1
    covered build-core
}

# The programs as they are given away: they compile with those options, and start.
released() {
    local program
    build build-release --preset release -DKAVO_BENCH=ON || return 1
    for program in kavo-timing-cli kavo-timing; do
        timeout 60 "build-release/bin/$program" --version || return 1
    done
    touch "$results/$1.passed"
}

# Only a disaster fails: the machine may be busy, and what it is compared with runs in turns with it.
measure_speed() {
    bench/measure.py build-release --quick >build-release/speed.log && touch "$results/$1.passed" && return
    cat build-release/speed.log
    return 1
}

# The tests of the windows one after the other: they share the focus and the pointer. Without the strictest checks,
# which the display's libraries do not pass: they keep memory, and take pieces of texts that have no end.
test_display() (
    trap end_display EXIT
    start_display || exit 1
    QT_QPA_PLATFORM=xcb ASAN_OPTIONS=detect_leaks=0 UBSAN_OPTIONS=print_stacktrace=1 \
        run_suites "$1" 1 build-asan/tests/kavo_window_tests
)

display() {
    build_sanitized && test_display "$1"
}

# The whole Windows program, with Qt.
for_windows() {
    packaging/windows/test.sh "${@:2}" "$results" || touch "$results/$1.failed"
    [ -e "$results/$1.failed" ] || touch "$results/$1.passed"
}

# What there is time for in a run of everything; where Qt for Windows has never been built, only what needs none.
partly_for_windows() {
    if command -v dpkg-query >/dev/null && [ -d "$(cached_qt)" ]; then
        for_windows "$1" --short
        return
    fi
    mkdir -p build-windows
    tools/check_windows.sh "$results/$1.xml" >build-windows/build.log 2>&1 || {
        tail -n 60 build-windows/build.log >&2
        [ -s "$results/$1.xml" ]
    }
}

lint_changes() {
    mkdir -p build-lint
    local status=passed
    tools/lint.sh --changed >build-lint/changes.log 2>&1 || status=failed
    cat build-lint/changes.log
    touch "$results/$1.$status"
}

# Tests that wait, for a display, an office or a server, leave the processors to what is compiled meanwhile.
all_stages() {
    local name behind=()
    echo "== build with the sanitizers"
    if build_sanitized; then
        for name in sanitized display; do
            stage "$name" "test_$name" >"build-asan/$name.log" 2>&1 &
            behind+=("$!")
        done
    else
        touch "$results/sanitized.failed"
    fi
    stage "without Qt" without_qt
    stage release released
    stage "for Windows" partly_for_windows
    stage lint lint_changes
    wait "${behind[@]}"
    cat build-asan/{sanitized,display}.log 2>/dev/null || true
    stage speed measure_speed
}

# faults [--sanitize] OPTION...
faults() {
    local folder=build-faults
    if [ "${1:-}" = --sanitize ]; then
        shift
        folder=build-asan
        build_sanitized
    else
        build "$folder" --preset release -DKAVO_TESTS=ON
    fi
    python3 -B tests/faults/run.py "$folder" "$@"
}

# fuzz LIMIT TARGET...: the limit as the targets take it; without a name all of them.
fuzz() {
    local limit="$1" target name
    shift
    # Some targets write a folder of files for each input.
    [ ! -w /dev/shm ] || export TMPDIR=/dev/shm
    install_packages fuzz
    build build-fuzz -DCMAKE_CXX_COMPILER=clang++ -DCMAKE_BUILD_TYPE=RelWithDebInfo -DKAVO_FUZZ=ON -DKAVO_GUI=OFF \
        -DKAVO_TESTS=OFF -DKAVO_LIBREOFFICE=OFF
    while read -r target; do
        name="$(basename "$target")"
        [ "$#" -eq 0 ] || [[ " $* " == *" $name "* ]] || continue
        echo "== $name $limit"
        mkdir -p "build-fuzz/corpus/$name"
        "$target" "$limit" -print_final_stats=1 -artifact_prefix=build-fuzz/ "build-fuzz/corpus/$name" \
            "fuzz/corpus/$name" 2>&1 | tail -8
    done < <(find build-fuzz/fuzz -maxdepth 1 -type f -executable | sort)
}

case "${1:-}" in
--help | -h)
    usage
    exit 0
    ;;
--lint)
    install_packages run test lint
    exec tools/lint.sh
    ;;
--packages)
    install_packages run test packages
    exec tests/packaging/all.sh
    ;;
--fuzz)
    [[ "${2:-}" =~ ^[0-9]+$ ]] || {
        usage >&2
        exit 2
    }
    install_packages run
    if [ "${3:-}" = runs ]; then
        fuzz "-runs=$2" "${@:4}"
    else
        fuzz "-max_total_time=$2"
    fi
    exit
    ;;
--faults)
    install_packages run test
    faults "${@:2}"
    exit
    ;;
"" | --quick | --sanitize | --coverage | --display | --release | --windows | --pages) ;;
*)
    usage >&2
    exit 2
    ;;
esac

install_packages run test coverage lint
rm -rf "$results"
mkdir -p "$results"
trap finish EXIT
case "${1:-}" in
--quick) stage plain plain ;;
--sanitize) stage sanitized sanitized ;;
--coverage) stage coverage coverage ;;
--display) stage display display ;;
--release)
    stage release released
    stage speed measure_speed
    ;;
--windows) stage "for Windows" for_windows ;;
--pages)
    install_packages pages
    stage pages pages
    ;;
*) all_stages ;;
esac
