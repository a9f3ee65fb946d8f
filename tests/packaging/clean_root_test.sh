#!/bin/bash
# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

# Installs the Debian packages in a root with nothing in it but Debian 12 and what they depend on, starts the
# programs there, and purges them again. Usage: clean_root_test.sh FOLDER-OF-PACKAGES
# Needs root, and Debian's archive. The window is shown on the display of the caller (Xvfb), which the root shares.
set -euo pipefail
[ $# -eq 1 ] || {
    sed -n '2,4s/^# //p' "$0" >&2
    exit 2
}
packages="$(realpath "$1")"
root="$(mktemp -d)"
chmod 755 "$root"
user=1000
failures=0

leave() {
    local mounted
    for mounted in dev proc; do
        # With all that is mounted below; a daemon that a package has started may still hold it.
        if mountpoint -q "$root/$mounted"; then umount --recursive --lazy "$root/$mounted"; fi
    done
    rm -rf --one-file-system "$root"
}
trap leave EXIT

# in_root COMMAND...: as root; as_user COMMAND...: as somebody who may write to nothing but a home.
in_root() {
    chroot "$root" /usr/bin/env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin DEBIAN_FRONTEND=noninteractive LC_ALL=C.UTF-8 "$@"
}
as_user() {
    chroot --userspec="$user:$user" "$root" /usr/bin/env -i PATH=/usr/bin:/bin LC_ALL=C.UTF-8 HOME=/home/ann \
        DISPLAY="${DISPLAY:-}" XDG_RUNTIME_DIR=/home/ann "$@"
}

check() {
    local what="$1"
    shift
    if "$@"; then
        echo "ok: $what"
    else
        echo "FAILED: $what"
        failures=$((failures + 1))
    fi
}

# What lies outside of homes, NUL behind each name. What the package tools write about their own doings is no trace
# of a package.
entries_of_root() {
    find . -xdev \( -path ./proc -o -path ./dev -o -path ./tmp -o -path ./home -o -path ./packages -o \
        -path ./var/log -o -path ./var/cache/apt -o -path ./var/cache/ldconfig -o -path ./var/lib/apt \) -prune -o \
        ! -path './var/lib/dpkg/status*' ! -path './var/lib/dpkg/lock*' ! -path './var/lib/dpkg/triggers/*' \
        ! -path './var/lib/dpkg/diversions*' ! -path './var/lib/dpkg/statoverride*' "$@"
}

# Its rights, owners and sums.
state_of_root() {
    (
        cd "$root"
        entries_of_root -printf '%m %U:%G %p %l\n'
        entries_of_root -type f -print0 | xargs -0 sha256sum
    ) | LC_ALL=C sort
}

echo "== A root of Debian 12"
mmdebstrap --quiet --variant=minbase bookworm "$root"
cp /etc/resolv.conf "$root/etc/resolv.conf"
mount -t proc proc "$root/proc"
mount --rbind /dev "$root/dev"
mount --make-rslave "$root/dev"
mkdir "$root/packages"
cp "$packages"/*.deb "$root/packages"
install -d -o "$user" -g "$user" "$root/home/ann"
in_root apt-get update -qq
package="$(cd "$root/packages" && ls kavo-timing_*.deb)"

echo "== What the package depends on"
mapfile -t dependencies < <(in_root apt-get install --simulate --no-install-recommends "/packages/$package" |
    awk '$1 == "Inst" && $2 != "kavo-timing" { print $2 }')
in_root apt-get install -y -qq --no-install-recommends "${dependencies[@]}" >/dev/null
before="$(state_of_root)"

echo "== Installed"
in_root apt-get install -y -qq --no-install-recommends "/packages/$package" >/dev/null
check "the package brings no scripts of a maintainer" \
    test -z "$(find "$root/var/lib/dpkg/info" -name 'kavo-timing.*inst' -o -name 'kavo-timing.*rm')"
check "version" test -n "$(as_user kavo-timing-cli --version)"
as_user cp -r /usr/share/doc/kavo-timing/examples/demo /home/ann/demo
as_user cp /usr/share/kavo-timing/targets.txt /home/ann/demo
check "table" test "$(as_user kavo-timing-cli --program-folder /home/ann/demo show | wc -l)" -eq 56
check "first start" as_user kavo-timing-cli users
check "program folder of the user" test -s "$root/home/ann/.local/share/kavo-timing/targets.txt"
printf ' 1 \r\n' >"$root/home/ann/demo/autolog.dat"
check "window without a display" as_user env QT_QPA_PLATFORM=offscreen \
    timeout 60 kavo-timing --program-folder /home/ann/demo --quit-after-first-paint
rm -f "$root/home/ann/demo/Marek/view.dat"
if [ -n "${DISPLAY:-}" ]; then
    check "window on a display" as_user timeout 60 kavo-timing --program-folder /home/ann/demo --quit-after-first-paint
    check "layout of the window" test -s "$root/home/ann/demo/Marek/view.dat"
fi

echo "== Purged"
in_root dpkg --purge kavo-timing >/dev/null
left="$(diff <(echo "$before") <(state_of_root) || true)"
[ -z "$left" ] || echo "$left"
check "nothing left but the user's own files" test -z "$left"
check "the user's own files" test -s "$root/home/ann/.local/share/kavo-timing/targets.txt"
check "dpkg knows nothing of it" test -z "$(in_root dpkg-query --show 'kavo-*' 2>/dev/null)"

echo "== Tests of the packages themselves"
status=0
autopkgtest --no-built-binaries "$packages"/kavo-timing_*.deb "$packages"/kavo-timing-libreoffice_*.deb \
    "$packages"/kavo-timing_*.dsc -- chroot "$root" >"$packages/autopkgtest.log" 2>&1 || status=$?
grep -E '^[a-z-]+ +(PASS|FAIL|SKIP)' "$packages/autopkgtest.log" || true
check "autopkgtest" test "$status" -eq 0

[ "$failures" -eq 0 ]
