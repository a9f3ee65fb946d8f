# Shared by run.sh and test.sh: installing packages and configuring builds. Sourced from the root.
# shellcheck shell=bash

# Installs the packages of tools/packages.txt that the groups given need and that are missing.
install_packages() {
    local group wanted=() missing=() as_root=()
    command -v dpkg-query >/dev/null || return 0 # another system: the build says what it misses
    for group in "$@"; do
        mapfile -t -O "${#wanted[@]}" wanted < <(awk -v group="$group" '$2 == group { print $1 }' tools/packages.txt)
    done
    # One query for all: a later run must not wait for the package tools.
    mapfile -t missing < <(comm -23 <(printf '%s\n' "${wanted[@]}" | sort -u) \
        <(dpkg-query -W -f '${db:Status-Status} ${Package}\n' "${wanted[@]}" 2>/dev/null |
            awk '$1 == "installed" { print $2 }' | sort -u))
    [ "${#missing[@]}" -gt 0 ] || return 0
    if [ "$(id -u)" -ne 0 ]; then
        if ! command -v sudo >/dev/null; then
            echo "These packages are missing: ${missing[*]}" >&2
            echo "Install them as root (apt-get install ${missing[*]}) or install sudo, then start again." >&2
            return 1
        fi
        as_root=(sudo)
    fi
    echo "Installing ${missing[*]}"
    if ! "${as_root[@]}" apt-get update -qq ||
        ! "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
            apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null; then
        echo "The packages could not be installed: ${missing[*]}" >&2
        return 1
    fi
}

# configure FOLDER OPTION...: CMake with Ninja; warnings are errors unless an option says otherwise.
configure() {
    local folder="$1" generator=()
    shift
    [ -e "$folder/CMakeCache.txt" ] || generator=(-G Ninja)
    mkdir -p "$folder"
    cmake -S . -B "$folder" "${generator[@]}" -DKAVO_WERROR=ON "$@" >"$folder/configure.log" 2>&1 || {
        cat "$folder/configure.log" >&2
        return 1
    }
}
