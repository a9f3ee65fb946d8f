#!/bin/bash
# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

# The way back: an older program reads what a session of the present one leaves. The tests see to it that
# this is tests/upgrades/*/session; here both programs print its tables and reports, which must be the same.
# Usage: tests/upgrades/back.sh OLD_CLI NEW_CLI
set -euo pipefail
[ $# -eq 2 ] || {
    sed -n '2,4s/^# //p' "$0" >&2
    exit 2
}
old="$(realpath "$1")"
new="$(realpath "$2")"
cd "$(dirname "$0")"
outputs="$(mktemp -d)"
trap 'rm -rf "$outputs"' EXIT

compared=0
for session in */session; do
    while IFS= read -r nick; do
        nick="${nick%$'\r'}"
        for command in "show --json" "export-text -" "export-html --template $session/own.ett -"; do
            read -ra words <<<"$command"
            "$old" --program-folder "$session" --user "$nick" "${words[@]}" >"$outputs/old"
            "$new" --program-folder "$session" --user "$nick" "${words[@]}" >"$outputs/new"
            cmp "$outputs/old" "$outputs/new"
            compared=$((compared + 1))
        done
    done <"$session/users.dat"
done
echo "$("$old" --version) reads what $("$new" --version) leaves: $compared outputs are the same"
[ "$compared" -gt 0 ]
