#!/bin/sh
# Compiles everything without Qt for Windows, with Excel's binding, so that a change made on Linux does not
# break it there. Needs the packages g++-mingw-w64-x86-64-posix, cmake and ninja-build. Usage:
#   tools/check_windows.sh [BUILD_FOLDER]
set -eu
source_folder=$(cd "$(dirname "$0")/.." && pwd)
build_folder=${1:-"$source_folder/build-windows"}
cmake -S "$source_folder" -B "$build_folder" -G Ninja \
    -DCMAKE_TOOLCHAIN_FILE="$source_folder/cmake/mingw-toolchain.cmake" -DCMAKE_BUILD_TYPE=Debug \
    -DKAVO_GUI=OFF -DKAVO_CLI=OFF -DKAVO_TESTS=OFF -DKAVO_LIBREOFFICE=OFF
cmake --build "$build_folder" --target kavo_core
# A library leaves unresolved names to others; all of it as one DLL does not.
x86_64-w64-mingw32-g++-posix -shared -o "$build_folder/kavo_core.dll" \
    -Wl,--whole-archive "$build_folder/core/libkavo_core.a" -Wl,--no-whole-archive -lole32 -loleaut32 -luuid
echo "Windows: compiled and linked"
