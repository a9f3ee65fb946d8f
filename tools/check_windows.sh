#!/bin/bash
# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

# Compiles everything without Qt for Windows, with Excel's binding, and runs the tests of base and core under
# Wine. The whole program is tested by packaging/windows/test.sh. Usage: tools/check_windows.sh [RESULTS.xml]
set -euo pipefail
cd "$(dirname "$0")/.."
# shellcheck source=tools/setup.sh
. tools/setup.sh
# shellcheck source=tools/wine.sh
. tools/wine.sh
folder=build-windows
results="$(realpath -m "${1:-$folder/results.xml}")"

configure "$folder" --preset windows
cmake --build "$folder" -j "$(nproc)"

# A library leaves unresolved names to others; all of it as one DLL does not.
x86_64-w64-mingw32-g++-posix -shared -o "$folder/kavo_core.dll" \
    -Wl,--whole-archive "$folder/base/libkavo_base.a" "$folder/core/libkavo_core.a" \
    "$folder/reports/libkavo_writers.a" "$folder/insight/libkavo_insight.a" -Wl,--no-whole-archive -lole32 -loleaut32 -luuid

rm -f "$results"
unset DISPLAY WAYLAND_DISPLAY
start_wine "$folder/wine"
in_wine 300 "$folder/tests/kavo_windows_tests.exe" --gtest_brief=1 \
    --gtest_filter="-$(omitted_tests plain)" "--gtest_output=xml:Z:$results"
