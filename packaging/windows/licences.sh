#!/bin/bash
# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

# Collects the notices and licences of what is linked into the Windows programs. Usage: licences.sh FOLDER
set -euo pipefail
[ $# -eq 1 ] || {
    sed -n '2s/^# //p' "$0" >&2
    exit 2
}
mkdir -p "$1"
here="$(dirname "$0")"

# notice PACKAGE: what Debian's package says of its authors and licences.
notice() {
    cp "/usr/share/doc/$1/copyright" "$1.txt"
}
qt="$(dpkg-query -W -f '${Version}' qt6-base-dev)"
sed "s/@QT@/${qt%%+*}/" "$here/NOTICES.txt" >"$1/NOTICES.txt"
[ ! -d "$here/../../LICENSES" ] || cp -r "$here/../../LICENSES" "$1/kavo-timing"
cd "$1"
notice qt6-base-dev
notice mingw-w64-x86-64-dev
notice gcc-mingw-w64-x86-64-posix-runtime
notice libcli11-dev
notice nlohmann-json3-dev
# The texts that those notices refer to.
for licence in Apache-2.0 Artistic GFDL-1.2 GFDL-1.3 GPL-2 GPL-3 LGPL-2 LGPL-2.1 LGPL-3; do
    cp "/usr/share/common-licenses/$licence" "$licence.txt"
done
