#!/bin/bash
# Times whole processes on the demo: the command line, and the program from its start to the first painted
# table against a bare Qt window with a table of the same size.
# Usage: bench/start_time.sh [BUILD-FOLDER] [RUNS]; without a display it uses Qt's offscreen platform.
set -euo pipefail
cd "$(dirname "$0")/.."
build="${1:-build-bench}"
runs="${2:-30}"
# shellcheck source=tools/setup.sh
. tools/setup.sh
configure "$build" -DCMAKE_BUILD_TYPE=Release -DKAVO_BENCH=ON
cmake --build "$build" --target kavo-timing kavo-timing-cli bare_window >"$build/build.log"

folder="$(mktemp -d)"
trap 'rm -rf "$folder"' EXIT
cp -r data/demo/. data/*.txt "$folder"
echo 1 >"$folder/autolog.dat" # logs in without asking
export XDG_STATE_HOME="$folder/state" # where the program remembers results
[ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ] || export QT_QPA_PLATFORM=offscreen

# The fastest and the middle of several runs: "fastest median" in milliseconds.
time_of() {
    local i start end
    for ((i = 0; i < runs; i++)); do
        start="$(date +%s%N)"
        "$@" >/dev/null
        end="$(date +%s%N)"
        echo $(((end - start) / 1000))
    done | sort -n | awk '{ t[NR] = $1 } END { printf "%.1f %.1f\n", t[1] / 1000, t[int((NR + 1) / 2)] / 1000 }'
}

report() {
    local name="$1"
    shift
    "$@" >/dev/null # once, so that all is in memory
    read -r fastest median < <(time_of "$@")
    printf '%-28s fastest %6.1f ms   median %6.1f ms\n' "$name" "$fastest" "$median"
}

report "kavo-timing-cli show" "$build/bin/kavo-timing-cli" --program-folder "$folder" show
report "bare window" "$build/bin/bare_window"
bare="$median"
report "kavo-timing to first paint" "$build/bin/kavo-timing" --program-folder "$folder" --quit-after-first-paint
awk -v ours="$median" -v bare="$bare" 'BEGIN { printf "kavo-timing takes %.2f times the bare window\n", ours / bare }'
