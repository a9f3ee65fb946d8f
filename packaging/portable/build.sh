#!/bin/bash
# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

# Makes FOLDER/kavo-timing-VERSION-linux-MACHINE.tar.xz: one folder to unpack anywhere, which is the program folder.
# Usage: packaging/portable/build.sh FOLDER [CMAKE-OPTION...]
# KAVO_PACKAGE_BUILD names a folder to compile in that is kept; without it one is made and removed.
set -euo pipefail
[ $# -ge 1 ] || {
    sed -n '2,4s/^# //p' "$0" >&2
    exit 2
}
folder="$(realpath -m "$1")"
shift
cd "$(dirname "$0")/../.."
version="$(python3 -B packaging/releases.py version)"
SOURCE_DATE_EPOCH="$(python3 -B packaging/releases.py epoch)"
export SOURCE_DATE_EPOCH
name="kavo-timing-$version-linux-$(uname -m)"

work="$(mktemp -d)"
trap 'rm -rf "$work"' EXIT
build="${KAVO_PACKAGE_BUILD:-$work/build}"
mkdir -p "$folder"

# quietly COMMAND...: what it says goes into the log and is shown when it fails.
quietly() {
    "$@" >>"$folder/$name.log" 2>&1 || {
        tail -n 60 "$folder/$name.log" >&2
        exit 1
    }
}

: >"$folder/$name.log"
# shellcheck disable=SC2016  # the folder of the program, as the system's loader understands it
quietly cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release -DKAVO_TESTS=OFF \
    '-DCMAKE_INSTALL_RPATH=$ORIGIN/lib' -DCMAKE_EXE_LINKER_FLAGS=-Wl,--disable-new-dtags "$@"
quietly cmake --build "$build"
quietly cmake --install "$build" --prefix "$work/installed" --strip

# The files of an installation in the places of a program folder.
tree="$work/$name"
mkdir "$tree"
mv "$work"/installed/bin/* "$tree"
mv "$work"/installed/share/kavo-timing/* "$tree"
find "$work/installed" -name 'spreadsheet_*.so' -exec mv -t "$tree" {} +
mv "$work"/installed/share/doc/kavo-timing/html "$tree/guide"
mv "$work"/installed/share/man/man1 "$tree/man"
mkdir "$tree/completion"
for program in kavo-timing kavo-timing-cli; do
    mv "$work/installed/share/bash-completion/completions/$program" "$tree/completion/$program.bash"
    mv "$work/installed/share/zsh/site-functions/_$program" "$tree/completion/_$program"
    mv "$work/installed/share/fish/vendor_completions.d/$program.fish" "$tree/completion"
done
cp packaging/icons/kavo-timing-256.png "$tree/kavo-timing.png"
[ ! -d LICENSES ] || cp -r LICENSES "$tree/licences"
sed "s/@VERSION@/$version/" packaging/portable/README.txt >"$tree/README.txt"
packaging/demo_folder.sh "$tree/demo"

# Libraries that every system with Qt has under the same names; the office's are loaded from where it is.
everywhere='^(libQt6(Core|Gui|Widgets|Network)\.so\.6|lib(stdc\+\+\.so\.6|gcc_s\.so\.1|z\.so\.1|c\.so\.6|m\.so\.6|dl\.so\.2)|libuno_[a-z0-9]+\.so\.3|ld-linux.*)$'

# bring_along FILE: the other libraries that it needs come along in "lib", each with its notice.
bring_along() {
    local name
    readelf -d "$1" | sed -nE 's/.*\(NEEDED\).*\[(.*)\]/\1/p' | { grep -vE "$everywhere" || true; } | while read -r name; do
        [ -e "$tree/lib/$name" ] || bring_library "$name" "$(ldd "$1" | awk -v name="$name" '$1 == name { print $3 }')"
    done
}

# bring_library NAME FILE: the library under the name that it is loaded by, with what it needs itself.
bring_library() {
    local package
    install -D -m 644 "$(realpath "$2")" "$tree/lib/$1"
    package="$(dpkg -S "$(realpath "$2")" | cut -d : -f 1)"
    install -D -m 644 "/usr/share/doc/$package/copyright" "$tree/lib/$package.copyright"
    bring_along "$2"
}
for program in "$tree/kavo-timing" "$tree/kavo-timing-cli"; do
    bring_along "$program"
done
# The one that writes .xlsx files is loaded only when it is needed, so that the programs do not name it as such.
xlsx="$(sed -n 's/^KAVO_XLSX_SONAME:INTERNAL=//p' "$build/CMakeCache.txt")"
[ -z "$xlsx" ] || bring_library "$xlsx" "$(sed -n 's/^KAVO_XLSX_LIBRARY:FILEPATH=//p' "$build/CMakeCache.txt")"

find "$tree" -mindepth 1 -printf '%P\0' | LC_ALL=C sort -z |
    tar --create --format=gnu --transform="s,^,$name/,S" --mode=u=rwX,go=rX --owner=0 --group=0 --numeric-owner \
        --mtime="@$SOURCE_DATE_EPOCH" -C "$tree" --no-recursion --verbatim-files-from --null --files-from=- |
    XZ_OPT='' xz -9 --threads=1 >"$folder/$name.tar.xz"
echo "$folder/$name.tar.xz"
