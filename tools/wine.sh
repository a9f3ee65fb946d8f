# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

# Windows programs under Wine, in a Windows of their own. Sourced.
# shellcheck shell=bash

# start_wine FOLDER: the next calls use the Windows in FOLDER, which runs until end_wine, not anew for each program.
# None of its processes outlives the script, unless that sets a trap of its own for its exit, which has to call end_wine.
start_wine() {
    wine="$(command -v wine64 || echo /usr/lib/wine/wine64)"
    wine_server="$(command -v wineserver || echo /usr/lib/wine/wineserver)"
    mkdir -p "$1"
    WINEPREFIX="$(realpath "$1")"
    # Names of files are read as the locale has them.
    export WINEPREFIX WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml=" LC_ALL=C.UTF-8
    trap end_wine EXIT
    "$wine_server" --persistent
}

# make_wine: what this Windows needs for windows, before the first program. (It is set up by whatever is run first;
# to order that with wineboot sets it up twice, with two managers of its services that do not find each other's.)
make_wine() {
    "$wine" regedit /S "Z:$PWD/tools/wine.reg" >/dev/null 2>&1
}

end_wine() {
    "$wine_server" --kill 2>/dev/null || true
}

# in_wine SECONDS PROGRAM ARGUMENT...
in_wine() {
    local seconds="$1"
    shift
    timeout --kill-after=10 "$seconds" "$wine" "$@"
}

# omissions WHERE: the tests that tests/windows_omissions.txt leaves out of that run.
omissions() {
    awk -v where="$1" '$1 == where || ($1 == "both" && where != "plain") { print $2 }' tests/windows_omissions.txt
}

# omitted_tests WHERE: the same as a pattern for GoogleTest.
omitted_tests() {
    omissions "$1" | paste -sd :
}

# stale_omissions WHERE PROGRAM ARGUMENT...: those that match no test of the program.
stale_omissions() {
    local where="$1" tests pattern
    shift
    tests="$(in_wine 120 "$@" --gtest_list_tests 2>/dev/null | tr -d '\r' |
        awk '/^ / { print suite $1; next } { suite = $1 }')"
    while read -r pattern; do
        pattern="${pattern//./\\.}"
        grep -qx -- "${pattern//\*/.*}" <<<"$tests" || echo "$pattern"
    done < <(omissions "$where")
}
