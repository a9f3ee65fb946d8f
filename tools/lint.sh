#!/bin/bash
# clang-tidy over all sources, or over those named. Needs clang-tidy.
set -euo pipefail
cd "$(dirname "$0")/.."
# shellcheck source=tools/setup.sh
. tools/setup.sh
configure build-lint -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_COMPILER=clang++
# Headers that the build makes (from .ui files, moc) must be there.
cmake --build build-lint -j "$(nproc)" >build-lint/lint.log 2>&1 || {
    cat build-lint/lint.log >&2
    exit 1
}
if [ "$#" -eq 0 ]; then
    mapfile -t files < <(git ls-files 'core/*.cpp' 'reports/*.cpp' 'updater/*.cpp' 'cli/*.cpp' 'forms/*.cpp' \
        'ui/*.cpp' 'app/*.cpp' | grep -v '^reports/excel/')
    set -- "${files[@]}"
fi
printf '%s\0' "$@" | xargs -0 -n 4 -P 2 clang-tidy -p build-lint --quiet 2>&1 |
    { grep -vE '^[0-9]+ warnings? (generated|treated)|^$' || true; } | tee build-lint/lint.log
[ ! -s build-lint/lint.log ]
