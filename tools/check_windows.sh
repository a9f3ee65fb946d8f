#!/bin/bash
# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

# Compiles everything without Qt for Windows, with Excel's binding, and runs the tests of base and core under
# Wine. Usage: tools/check_windows.sh [RESULTS.xml]
set -euo pipefail
cd "$(dirname "$0")/.."
# shellcheck source=tools/setup.sh
. tools/setup.sh
folder=build-windows
results="$(realpath -m "${1:-$folder/results.xml}")"

configure "$folder" --preset windows
cmake --build "$folder" -j "$(nproc)"

# A library leaves unresolved names to others; all of it as one DLL does not.
x86_64-w64-mingw32-g++-posix -shared -o "$folder/kavo_core.dll" \
    -Wl,--whole-archive "$folder/base/libkavo_base.a" "$folder/core/libkavo_core.a" \
    "$folder/reports/libkavo_writers.a" "$folder/insight/libkavo_insight.a" -Wl,--no-whole-archive -lole32 -loleaut32 -luuid

# These compare spellings of a path that Windows, which ignores case itself, takes for the same.
spelling='CurrentUser.IsFoundInAnyCaseAndRewrittenInPlace:UserFolder.LiesInTheProgramFolder'
spelling="$spelling:ProgramFolder.IsTheOneNamedBeforeAnyOther:Locate.*:LocateTyped.CountsFromTheFolder"
spelling="$spelling:Colours.AreFoundInAnyCase:SuppliedFolder.OfAPortableCopyComesBeforeThatOfAnInstallation"
# These need a file of a terabyte that takes no room, or a link, which Wine's drive does not give.
unknown='StatisticsFile.OfATerabyteIsAClearError:ReadFile.RefusesMoreThanItsLimit'
unknown="$unknown:NewUser.IsNobodyOnlyBecauseAProgramWasKilledThere"
rm -f "$results"
wine="$(command -v wine64 || echo /usr/lib/wine/wine64)"
server="$(command -v wineserver || echo /usr/lib/wine/wineserver)"
export WINEPREFIX="$PWD/$folder/wine" WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml="
unset DISPLAY WAYLAND_DISPLAY
# Whatever happens, no process of this Windows stays behind.
trap '"$server" --kill 2>/dev/null || true' EXIT
timeout --kill-after=10 300 "$wine" "$folder/tests/kavo_windows_tests.exe" --gtest_brief=1 \
    --gtest_filter="-$spelling:$unknown" "--gtest_output=xml:Z:$results"
