#!/bin/sh
# Fails on a source that clang-format would change.
set -eu
cd "$(dirname "$0")/.."
git ls-files '*.cpp' '*.h' | xargs clang-format --dry-run --Werror
