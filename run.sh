#!/bin/bash
# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

# Builds Kavo Timing and starts it on a demo folder. Arguments go to the program.
set -euo pipefail
cd "$(dirname "$0")"
# shellcheck source=tools/setup.sh
. tools/setup.sh

build=build
demo="$build/demo"

install_packages run
mkdir -p "$build"
if ! grep -qs '^CMAKE_BUILD_TYPE:STRING=Release$' "$build/CMakeCache.txt"; then
    configure "$build" -DCMAKE_BUILD_TYPE=Release -DKAVO_GUI=ON -DKAVO_TESTS=OFF -DKAVO_WERROR=OFF
fi
cmake --build "$build" --target all >"$build/build.log" 2>&1 || {
    cat "$build/build.log" >&2
    exit 1
}

# Made once, so that what the user changes in it stays.
if [ ! -d "$demo" ]; then
    rm -rf "$demo.new"
    packaging/demo_folder.sh "$demo.new"
    mv "$demo.new" "$demo"
fi

if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}${QT_QPA_PLATFORM:-}" ]; then
    exec "$build/bin/kavo-timing" --program-folder "$demo" "$@"
fi
echo "There is no display: this is the table that the main window would show."
exec "$build/bin/kavo-timing-cli" --program-folder "$demo" show
