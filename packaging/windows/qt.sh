# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

# The static Qt of the Windows program: where it is, and a build with it. Sourced from the root.
# shellcheck shell=bash

# The place of the one that build_qt.sh makes, outside the checkout: for each version of the system's Qt another.
cached_qt() {
    local version
    version="$(dpkg-query -W -f '${Version}' qt6-base-dev)"
    echo "${XDG_CACHE_HOME:-$HOME/.cache}/kavo-timing/qt-${version%%+*}-mingw-static"
}

# configure_for_windows QT FOLDER OPTION...
configure_for_windows() {
    local qt="$1"
    shift
    # Qt's build tools are those of this system, which are of the same version.
    configure "$@" -DCMAKE_TOOLCHAIN_FILE="$qt/lib/cmake/Qt6/qt.toolchain.cmake" \
        -DQT_CHAINLOAD_TOOLCHAIN_FILE="$PWD/cmake/mingw-toolchain.cmake" \
        -DQT_HOST_PATH=/usr -DQT_HOST_PATH_CMAKE_DIR="/usr/lib/$(uname -m)-linux-gnu/cmake"
}
