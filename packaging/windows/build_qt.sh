#!/bin/bash
# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

# Builds what the Windows program needs of Qt, as static libraries, from the source package of this system's own Qt.
# Takes about half an hour on two processors, 3 GB on the disk meanwhile. Usage: packaging/windows/build_qt.sh FOLDER
set -euo pipefail
[ $# -eq 1 ] || {
    sed -n '2,3s/^# //p' "$0" >&2
    exit 2
}
target="$(realpath -m "$1")"
[ ! -e "$target" ] || {
    echo "$target is there already." >&2
    exit 1
}
cd "$(dirname "$0")/../.."
# shellcheck source=tools/setup.sh
. tools/setup.sh
install_packages run windows
toolchain="$PWD/cmake/mingw-toolchain.cmake"

# Beside its place in the end, where there is room for it.
mkdir -p "$(dirname "$target")"
work="$(mktemp -d "$target-XXXXXX")"
trap 'rm -rf "$work"' EXIT

# The system's own package sources, asked for source packages; its settings stay as they are.
mkdir -p "$work"/apt/{sources.list.d,lists/partial,cache/archives/partial}
while read -r list; do
    sed -E 's/^deb[[:blank:]]/deb-src /; s/^Types:.*/Types: deb-src/' "$list" >"$work/apt/sources.list.d/$(basename "$list")"
done < <(find /etc/apt/sources.list /etc/apt/sources.list.d -type f \( -name '*.list' -o -name '*.sources' \) 2>/dev/null)
apt=(apt-get -qq -o "Dir::Etc::SourceList=/dev/null" -o "Dir::Etc::SourceParts=$work/apt/sources.list.d"
    -o "Dir::State::Lists=$work/apt/lists" -o "Dir::Cache=$work/apt/cache" -o "APT::Sandbox::User=$(id -un)")

cd "$work"
version="$(dpkg-query -W -f '${source:Version}' qt6-base-dev)"
"${apt[@]}" update
"${apt[@]}" source --download-only "qt6-base=$version"
dpkg-source --extract qt6-base_*.dsc source >/dev/null

on=(static_runtime relocatable optimize_size direct2d directwrite schannel ssl)
off=(dbus sql xml printsupport concurrent opengl vulkan direct2d1_1 directwrite3 tabletevent tuiotouch zstd brotli icu
    glib fontconfig windeployqt macdeployqt androiddeployqt qmake pkg_config
    system_{zlib,png,jpeg,freetype,harfbuzz,pcre2,doubleconversion,libb2,textmarkdownreader})
features=()
for feature in "${on[@]}"; do features+=("-DFEATURE_$feature=ON"); done
for feature in "${off[@]}"; do features+=("-DFEATURE_$feature=OFF"); done
cmake -S source -B build -G Ninja -DCMAKE_TOOLCHAIN_FILE="$toolchain" -DCMAKE_BUILD_TYPE=Release \
    -DCMAKE_INSTALL_PREFIX="$target" -DBUILD_SHARED_LIBS=OFF -DQT_BUILD_EXAMPLES=OFF -DQT_BUILD_TESTS=OFF \
    -DQT_HOST_PATH=/usr -DQT_HOST_PATH_CMAKE_DIR="/usr/lib/$(uname -m)-linux-gnu/cmake" \
    -DQT_QMAKE_TARGET_MKSPEC=win32-g++ -DINPUT_openssl=no -DINPUT_opengl=no \
    "${features[@]}" >configure.log 2>&1 || {
    tail -n 60 configure.log >&2
    exit 1
}
cmake --build build >build.log 2>&1 || {
    tail -n 60 build.log >&2
    exit 1
}
DESTDIR="$work/installed" cmake --install build >/dev/null
# Whole or not at all: what is there is used without another look.
mv "$work/installed$target" "$target"
