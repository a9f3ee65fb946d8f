#!/bin/bash
# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

# clang-tidy over all sources, over those named, or with --changed over those that this branch changes. Needs
# clang-tidy. What changed is told from the main branch, and on the main branch itself from the commit before.
# --changed is part of every test run and never takes long: it begins with the sources changed most, and what it does
# not come to is said.
set -euo pipefail
cd "$(dirname "$0")/.."
# shellcheck source=tools/setup.sh
. tools/setup.sh
most=8 # sources that --changed checks
limit=()

# Sources whose layer is linted; the automation of other programs compiles for Windows only.
sources() {
    git ls-files --cached --others --exclude-standard -- "$@" |
        { grep -vE '^(tests|bench|fuzz|tools)/|^reports/automation/(automation|calc|excel)_' || true; }
}

# A header is read with the source of the same name, or else with the first that includes it.
source_of() {
    local file="$1"
    case "$file" in
    *.cpp) echo "$file" ;;
    *) if [ -e "${file%.h}.cpp" ]; then
        echo "${file%.h}.cpp"
    else
        sources '*.cpp' | xargs grep -lF "#include \"$file\"" | head -1 || true
    fi ;;
    esac
}

# The commit that changes are told from; nothing where there is none, as in a shallow clone or outside of git.
commit_before() {
    local since
    since="$(git merge-base HEAD origin/main || git merge-base HEAD main || true)"
    [ "$since" != "$(git rev-parse HEAD)" ] || since="$(git rev-parse --verify --quiet HEAD^ || true)"
    echo "$since"
}

# The files with the most changed lines first.
changed_files() {
    git diff --numstat --no-renames --diff-filter=d "$1" | sort -rn | cut -f 3
    git ls-files --others --exclude-standard
}

changed_sources() {
    local since known file
    since="$(commit_before 2>/dev/null)"
    if [ -z "$since" ]; then
        echo "No commit to compare with, nothing checked (./test.sh --lint checks everything)" >&2
        return
    fi
    known="$(sources '*.cpp' '*.h')"
    while read -r file; do
        if grep -qxF "$file" <<<"$known"; then source_of "$file"; fi
    done < <(changed_files "$since") | awk '!seen[$0]++'
}

case "${1:-}" in
"") mapfile -t files < <(sources '*.cpp') ;;
--changed)
    mapfile -t files < <(changed_sources)
    if [ "${#files[@]}" -gt "$most" ]; then
        echo "${#files[@]} sources changed, $most are checked (./test.sh --lint checks everything)"
        files=("${files[@]:0:most}")
    fi
    limit=(timeout 180)
    ;;
*) files=("$@") ;;
esac
echo "${#files[@]} sources to check"
[ "${#files[@]}" -gt 0 ] || exit 0

configure build-lint -DCMAKE_BUILD_TYPE=Debug -DKAVO_WERROR=OFF -DKAVO_TESTS=OFF -DKAVO_CCACHE=OFF \
    -DCMAKE_DISABLE_PRECOMPILE_HEADERS=ON
# Headers that the build makes must be there, objects need not: moc and uic are called as the build would.
made="$(sed -nE 's/^build ([^ ]*types\/stamp).*/\1/p' build-lint/build.ninja)"
{
    find build-lint -name AutogenInfo.json -print0 | xargs -0 -I {} -P "$(nproc)" cmake -E cmake_autogen {} Debug &&
        { [ -z "$made" ] || cmake --build build-lint --target "$made"; }
} >build-lint/lint.log 2>&1 || {
    cat build-lint/lint.log >&2
    exit 1
}
status=0
printf '%s\0' "${files[@]}" | "${limit[@]}" xargs -0 -n 1 -P "$(nproc)" \
    clang-tidy -p build-lint --quiet --extra-arg=-Wno-unknown-warning-option 2>&1 |
    { grep -vE '^[0-9]+ warnings? (generated|treated)|^xargs: |^$' || true; } | tee build-lint/lint.log || status=$?
if [ "$status" -eq 124 ]; then
    echo "Time is up, not all were checked (./test.sh --lint checks everything)"
    status=0
fi
[ "$status" -eq 0 ] && [ ! -s build-lint/lint.log ]
