#!/bin/bash
# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

# Builds the programs and what they are measured with, measures, and says which goals are missed.
# Usage: bench/run.sh [OPTION of bench/measure.py]...; --help tells them.
set -euo pipefail
cd "$(dirname "$0")/.."
# shellcheck source=tools/setup.sh
. tools/setup.sh
build="build-bench"
configure "$build" -DCMAKE_BUILD_TYPE=Release -DKAVO_BENCH=ON
targets=(kavo-timing kavo-timing-cli bare_window empty_program scan_file loading_bench reload_bench)
if grep -qs spreadsheet_bench "$build/build.ninja"; then targets+=(spreadsheet_bench); fi
cmake --build "$build" --target "${targets[@]}" >"$build/build.log" 2>&1 || {
    cat "$build/build.log" >&2
    exit 1
}
exec python3 -B bench/measure.py "$build" "$@"
