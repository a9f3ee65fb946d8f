#!/bin/bash
# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

# Keeps what the present version leaves of a program folder, in tests/upgrades/VERSION, when it is released.
# Usage: tests/upgrades/record.sh [BUILD_FOLDER]     (default: build-dev, with the tests built)
set -euo pipefail
cd "$(dirname "$0")/../.."
build="${1:-build-dev}"
version="$(sed -nE 's/^project\(.* VERSION ([0-9.]+) .*/\1/p' CMakeLists.txt)"
place="tests/upgrades/$version"

if [ -e "$place/session" ]; then
    echo "$place is there already; what a version left is kept as it is." >&2
    exit 1
fi
# The folder of the version before is a folder of this one, too: players bring it along.
if [ ! -e "$place/folder" ]; then
    before="$(find tests/upgrades -mindepth 1 -maxdepth 1 -type d | sort -V | tail -n 1)"
    mkdir -p "$place"
    cp -r "$before/folder" "$before/records_page.html" "$place"
fi
export KAVO_RECORD_VERSION="$version" QT_QPA_PLATFORM=offscreen
"$build/tests/kavo_tests" --gtest_filter='From/Upgrade.*' --gtest_brief=1
"$build/tests/kavo_window_tests" --gtest_filter='From/UpgradeSession.*' --gtest_brief=1
echo "$place"
