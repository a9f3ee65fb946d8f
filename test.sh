#!/bin/bash
# Builds and tests Kavo Timing. --help tells the options.
set -euo pipefail
cd "$(dirname "$0")"
# shellcheck source=tools/setup.sh
. tools/setup.sh

usage() {
    cat <<'TEXT'
Usage: ./test.sh [OPTION]
Without an option everything is built and tested: without Qt, with the windows (without a display, then on a
virtual one with a window manager), once more with the address and undefined-behaviour sanitizers, and compiled
for Windows.

  --quick          only the build with the windows, without a display
  --sanitize       only the build with the sanitizers
  --coverage       line coverage of base/ and core/; fails below 95 %
  --fuzz SECONDS   every fuzz target for so long
  --lint           clang-tidy over all sources
  --help           this text
TEXT
}

jobs="$(nproc)"
results=build-test/results
xvfb=
manager=

# Ends what was started and says how it went, also when a stage could not be built.
finish() {
    local status=$?
    [ -z "$manager" ] || kill "$manager" 2>/dev/null || true
    [ -z "$xvfb" ] || kill "$xvfb" 2>/dev/null || true
    [ -d "$results" ] || exit "$status"
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
    ctest --test-dir "$folder" --output-on-failure --output-junit "$PWD/$results/$stage.xml" "$@" \
        >"$folder/tests.log" 2>&1 ||
        grep -vE '^ *[0-9]+/[0-9]+ Test .*(Passed|Skipped)|^ *Start ' "$folder/tests.log" || true
    [ -s "$results/$stage.xml" ]
    [ -s "$results/$stage.xml" ]
}

# stage NAME FUNCTION: a stage that cannot be built counts as one failure.
stage() {
    echo "== $1"
    "$2" "$1" || touch "$results/$1.failed"
}

without_qt() {
    build build-test -DCMAKE_BUILD_TYPE=Debug -DKAVO_BENCH=ON -DKAVO_GUI=OFF -DCMAKE_DISABLE_FIND_PACKAGE_Qt6=ON &&
        run_tests "$1" build-test -j "$jobs"
}

# The same folder as without Qt: only the windows are left to be compiled.
with_windows() {
    build build-test -DCMAKE_BUILD_TYPE=Debug -DKAVO_BENCH=ON -DKAVO_GUI=ON -DCMAKE_DISABLE_FIND_PACKAGE_Qt6=OFF &&
        QT_QPA_PLATFORM=offscreen run_tests "$1" build-test -j "$jobs"
}

start_display() {
    local number_file display
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
    openbox >/dev/null 2>&1 &
    manager=$!
}

# One test after the other: they share the focus and the pointer.
on_display() {
    start_display && QT_QPA_PLATFORM=xcb run_tests "$1" build-test -L windows -j 1
}

sanitized() {
    build build-sanitize -DCMAKE_BUILD_TYPE=Debug -DKAVO_SANITIZE=ON -DCMAKE_CXX_FLAGS=-O1 &&
        QT_QPA_PLATFORM=offscreen ASAN_OPTIONS=detect_leaks=1:strict_string_checks=1 UBSAN_OPTIONS=print_stacktrace=1 \
            LSAN_OPTIONS="suppressions=$PWD/tools/leaks.supp:print_suppressions=0" \
            run_tests "$1" build-sanitize -j "$jobs"
}

# Everything without Qt, and Excel's binding, must compile for Windows.
for_windows() {
    mkdir -p build-windows
    tools/check_windows.sh build-windows >build-windows/build.log 2>&1 && tail -n 1 build-windows/build.log && return
    tail -n 40 build-windows/build.log >&2
    return 1
}

coverage() {
    build build-coverage -DCMAKE_BUILD_TYPE=Debug -DKAVO_COVERAGE=ON -DKAVO_GUI=OFF || return 1
    find build-coverage -name '*.gcda' -delete
    run_tests "$1" build-coverage -j "$jobs"
    gcovr --root . --filter 'base/' --filter 'core/' --exclude-throw-branches --object-directory build-coverage --fail-under-line 95
}

fuzz() {
    local target name
    install_packages fuzz
    build build-fuzz -DCMAKE_CXX_COMPILER=clang++ -DCMAKE_BUILD_TYPE=RelWithDebInfo -DKAVO_FUZZ=ON -DKAVO_GUI=OFF \
        -DKAVO_TESTS=OFF -DKAVO_LIBREOFFICE=OFF
    while read -r target; do
        name="$(basename "$target")"
        echo "== $name for $1 seconds"
        mkdir -p "build-fuzz/corpus/$name"
        set -- "$1" "build-fuzz/corpus/$name"
        [ ! -d "fuzz/corpus/$name" ] || set -- "$@" "fuzz/corpus/$name"
        "$target" -max_total_time="$1" -print_final_stats=1 -artifact_prefix=build-fuzz/ "${@:2}" 2>&1 | tail -8
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
--fuzz)
    [[ "${2:-}" =~ ^[0-9]+$ ]] || {
        usage >&2
        exit 2
    }
    install_packages run
    fuzz "$2"
    exit
    ;;
"" | --quick | --sanitize | --coverage) ;;
*)
    usage >&2
    exit 2
    ;;
esac

install_packages run test
rm -rf "$results"
mkdir -p "$results"
trap finish EXIT
case "${1:-}" in
--quick) stage windows with_windows ;;
--sanitize) stage sanitized sanitized ;;
--coverage)
    install_packages coverage
    stage coverage coverage
    ;;
*)
    stage "without Qt" without_qt
    stage windows with_windows
    stage display on_display
    stage sanitized sanitized
    stage "for Windows" for_windows
    ;;
esac
