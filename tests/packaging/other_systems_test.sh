#!/bin/bash
# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

# ./run.sh and ./test.sh on systems that are not Debian name what is missing in that system's words. The systems
# are played: their package tools and their names lie in a folder in front of the path.
# shellcheck disable=SC2016  # what the played commands are made of
set -euo pipefail
cd "$(dirname "$0")/../.."
fakes="$(mktemp -d)"
trap 'rm -rf "$fakes"' EXIT
export KAVO_OS_RELEASE="$fakes/os-release"
failures=0

# fake NAME BODY: a command of the played system.
fake() {
    printf '#!/bin/sh\n%s\n' "$2" >"$fakes/$1"
    chmod +x "$fakes/$1"
}

# expect WHAT EXPECTED ACTUAL
expect() {
    [ "$2" = "$3" ] && return
    printf '%s:\nexpected: %s\nactual:   %s\n' "$1" "$2" "$3"
    failures=$((failures + 1))
}

# in_system COMMAND...: what a command says there, and its exit status.
in_system() {
    local said status=0
    said="$(PATH="$fakes:$PATH" "$@" 2>&1)" || status=$?
    printf '%s\n%s' "$said" "$status"
}

missing() { # NAMES HOW
    printf 'These packages are missing: %s\n' "$1"
    printf 'Install them (%s %s), then start again.\n' "$2" "$1"
    printf 'If you have what they hold from elsewhere, set KAVO_SKIP_PACKAGES=1.\n1'
}

printf 'NAME="Fedora Linux"\nID=fedora\n' >"$KAVO_OS_RELEASE"
fake rpm '[ "$1 $2" = "-q --whatprovides" ] || exit 9
case $3 in ninja-build | qt6-qtbase-devel) echo "no package provides $3"; exit 1 ;; esac'
expect "run.sh on Fedora" "$(missing "ninja-build qt6-qtbase-devel" "sudo dnf install")" "$(in_system ./run.sh)"
expect "test.sh on Fedora" "$(missing "ninja-build qt6-qtbase-devel" "sudo dnf install")" "$(in_system ./test.sh --quick)"
printf 'ID="rocky"\nID_LIKE="rhel centos fedora"\n' >"$KAVO_OS_RELEASE"
expect "run.sh on a system like Fedora" "$(missing "ninja-build qt6-qtbase-devel" "sudo dnf install")" "$(in_system ./run.sh)"

printf 'ID=arch\n' >"$KAVO_OS_RELEASE"
fake pacman '[ "$1" = -T ] || exit 9
case $2 in qt6-base | ninja) echo "$2"; exit 127 ;; esac'
expect "run.sh on Arch" "$(missing "ninja qt6-base" "sudo pacman -S")" "$(in_system ./run.sh)"

fake uname 'echo Darwin'
fake brew '[ "$1 $2" = "list --versions" ] || exit 9
case $3 in qt) exit 1 ;; esac; echo "$3 1.0"'
expect "run.sh on macOS" "$(missing qt "brew install")" "$(in_system ./run.sh)"
fake brew 'exit 0'
expect "macOS with everything" "$(printf '\n0')" "$(in_system bash -c 'set -eu; . tools/setup.sh; install_packages run')"
fake brew 'exit 1'
expect "asked to go on" "$(printf '\n0')" \
    "$(KAVO_SKIP_PACKAGES=1 in_system bash -c 'set -eu; . tools/setup.sh; install_packages run')"
rm "$fakes/uname" "$fakes/brew"

printf 'ID=slackware\n' >"$KAVO_OS_RELEASE"
expect "a system of other names" \
    "How this system calls its packages is not known. On Debian these are needed: $(awk '$2 == "run" { print $1 }' \
        tools/packages.txt | sort -u | tr '\n' ' ')"$'\n0' \
    "$(in_system bash -c 'set -eu; . tools/setup.sh; install_packages run')"

printf 'ID=linuxmint\nID_LIKE="ubuntu debian"\n' >"$KAVO_OS_RELEASE"
expect "a system like Debian" "debian"$'\n0' "$(in_system bash -c '. tools/setup.sh; system_here')"

expect "packages without names elsewhere" "" \
    "$(comm -23 <(awk '/^[^#]/ { print $1 }' tools/packages.txt | sort -u) \
        <(awk '/^[^#]/ && NF == 4 { print $1 }' tools/packages_elsewhere.txt | sort -u))"

# The Debian package is built with nothing but what it names itself.
expect "libraries that packaging/debian/control does not name" "" \
    "$(awk '$2 == "run" && $1 ~ /-dev$/ { print $1 }' tools/packages.txt | while read -r name; do
        grep -qE "^( |Build-Depends:).*\b$name\b" packaging/debian/control || echo "$name"
    done)"

[ "$failures" -eq 0 ]
