#!/bin/sh
# Compiles everything without Qt for Windows, with Excel's binding, and runs the tests of the core under
# Wine where that is installed. Needs the packages g++-mingw-w64-x86-64-posix and googletest, for the tests
# also wine64. Usage:
#   tools/check_windows.sh [BUILD_FOLDER]
set -eu
source_folder=$(cd "$(dirname "$0")/.." && pwd)
build_folder=$(realpath -m "${1:-"$source_folder/build-windows"}")

wine=$(command -v wine64 || ls /usr/lib/wine/wine64 2>/dev/null || true)
tests=ON
if [ -z "$wine" ] || [ ! -d /usr/src/googletest ]; then tests=OFF; fi

cmake -S "$source_folder" -B "$build_folder" -G Ninja \
    -DCMAKE_TOOLCHAIN_FILE="$source_folder/cmake/mingw-toolchain.cmake" -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_FLAGS_DEBUG=-O0 \
    -DCMAKE_CXX_COMPILER_LAUNCHER="$(command -v ccache || true)" \
    -DKAVO_GUI=OFF -DKAVO_CLI=OFF -DKAVO_LIBREOFFICE=OFF -DKAVO_TESTS=$tests
cmake --build "$build_folder"

# A library leaves unresolved names to others; all of it as one DLL does not.
x86_64-w64-mingw32-g++-posix -shared -o "$build_folder/kavo_core.dll" \
    -Wl,--whole-archive "$build_folder/base/libkavo_base.a" "$build_folder/core/libkavo_core.a" \
    "$build_folder/reports/libkavo_writers.a" -Wl,--no-whole-archive -lole32 -loleaut32 -luuid
echo "Windows: compiled and linked"

if [ $tests = OFF ]; then
    echo "Windows: tests NOT run (wine64 or googletest is not installed)"
    exit 0
fi
# These compare spellings of a path that Windows, which ignores case itself, takes for the same.
spelling='CurrentUser.IsFoundInAnyCaseAndRewrittenInPlace:UserFolder.LiesInTheProgramFolder'
spelling="$spelling:ProgramFolder.IsTheOneNamedBeforeAnyOther:Locate.*:LocateTyped.CountsFromTheFolder"
spelling="$spelling:Colours.AreFoundInAnyCase"
WINEPREFIX="$build_folder/wine" WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml=" \
    timeout 120 "$wine" "$build_folder/tests/kavo_windows_tests.exe" --gtest_brief=1 --gtest_filter="-$spelling"
