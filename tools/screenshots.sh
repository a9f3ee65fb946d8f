#!/bin/sh
# Takes a picture of every window into docs/images. Needs a configured build folder (default: build).
set -eu
cd "$(dirname "$0")/.."
build="${1:-build}"
cmake --build "$build" --target kavo-screenshots
mkdir -p docs/images
QT_QPA_PLATFORM=offscreen QT_SCALE_FACTOR=1 "$build/tools/kavo-screenshots" docs/images
