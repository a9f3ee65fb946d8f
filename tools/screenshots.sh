#!/bin/sh
# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

# Takes all pictures of docs/images anew. Needs a configured build folder (default: build-dev), and Chromium for those
# of web pages, which stay as they are without it.
set -eu
cd "$(dirname "$0")/.."
build="${1:-build-dev}"
images=docs/images
pages=tests/pages

cmake --build "$build" --target kavo-screenshots kavo-timing-cli
export QT_QPA_PLATFORM="offscreen:configfile=$PWD/tests/data/large_screen.json"
rm -f "$images"/*.txt
QT_SCALE_FACTOR=1 "$build/tools/kavo-screenshots" "$images"
for scale in 1 1.5 2; do
    percent=$(echo "$scale" | awk '{ print $1 * 100 }')
    QT_SCALE_FACTOR=$scale "$build/tools/kavo-screenshots" --sheet "$images/contact-sheet-$percent.png"
done

browser="$(command -v chromium || command -v chromium-browser)" || {
    echo "Without Chromium the pictures of web pages stay as they are." >&2
    exit 0
}
python3 -B "$pages/take_pictures.py" "$build/bin/kavo-timing-cli" "$browser" "$images"
