# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

# A virtual display of 1280 x 1024 pixels with a window manager. Sourced.
# shellcheck shell=bash

display_processes=()

# start_display: sets DISPLAY. Whoever calls it calls end_display in the end.
start_display() {
    local number_file number
    number_file="$(mktemp)"
    Xvfb -displayfd 3 -screen 0 1280x1024x24 -nolisten tcp 3>"$number_file" 2>/dev/null &
    display_processes=("$!")
    for _ in $(seq 600); do
        [ ! -s "$number_file" ] || break
        kill -0 "${display_processes[0]}" 2>/dev/null || break
        sleep 0.1
    done
    number="$(cat "$number_file")"
    rm -f "$number_file"
    if [ -z "$number" ]; then
        echo "Xvfb did not start" >&2
        return 1
    fi
    export DISPLAY=":$number"
    openbox >/dev/null 2>&1 &
    display_processes+=("$!")
}

end_display() {
    [ "${#display_processes[@]}" -eq 0 ] || kill "${display_processes[@]}" 2>/dev/null || true
    display_processes=()
}
