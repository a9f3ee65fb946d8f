# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

# Shared by run.sh and test.sh: installing packages and configuring builds. Sourced from the root. Up to the
# check of the packages it has to run in the old bash of macOS, too.
# shellcheck shell=bash

# The systems whose packages have names here: debian, fedora, arch or macos; else "other".
system_here() {
    local release="${KAVO_OS_RELEASE:-/etc/os-release}" id
    if [ "$(uname -s)" = Darwin ]; then
        echo macos
        return
    fi
    # The system's own name first, then those that it is like.
    for id in $(sed -n 's/^ID=//p; s/^ID_LIKE=//p' "$release" 2>/dev/null | tr -d '"'); do
        case "$id" in
        debian | ubuntu) echo debian && return ;;
        fedora | rhel | centos) echo fedora && return ;;
        arch) echo arch && return ;;
        esac
    done
    echo other
}

# Debian's names of the packages that the groups need.
packages_of() {
    local group
    for group in "$@"; do
        awk -v group="$group" '$2 == group { print $1 }' tools/packages.txt
    done | sort -u
}

# Their names on another system: column 2 for Fedora, 3 for Arch, 4 for Homebrew.
packages_elsewhere() {
    local column="$1"
    shift
    packages_of "$@" | awk -v column="$column" '
        NR == FNR { name[$1] = $column; next }
        ($1 in name) && name[$1] != "-" { print name[$1] }' tools/packages_elsewhere.txt - | sort -u
}

# tell_missing HOW-TO-INSTALL NAME...: says what has to be installed, and fails.
tell_missing() {
    local install="$1"
    shift
    [ $# -gt 0 ] || return 0
    echo "These packages are missing: $*" >&2
    echo "Install them ($install $*), then start again." >&2
    echo "If you have what they hold from elsewhere, set KAVO_SKIP_PACKAGES=1." >&2
    return 1
}

# Prints the packages named on standard input that are missing, as far as the command in the arguments, which
# is given one name, fails for them.
missing_by() {
    local name
    while read -r name; do
        "$@" "$name" >/dev/null 2>&1 </dev/null || echo "$name"
    done
}

# Sees to the packages that the groups given need: on Debian they are installed, elsewhere those that are
# missing are named as that system calls them. KAVO_SKIP_PACKAGES=1 leaves all of that out.
install_packages() {
    [ -z "${KAVO_SKIP_PACKAGES:-}" ] || return 0
    # Names hold no blanks: they may fall apart into words.
    # shellcheck disable=SC2046
    case "$(system_here)" in
    debian) install_on_debian "$@" ;;
    fedora) tell_missing "sudo dnf install" $(packages_elsewhere 2 "$@" | missing_by rpm -q --whatprovides) ;;
    arch) tell_missing "sudo pacman -S" $(packages_elsewhere 3 "$@" | missing_by pacman -T) ;;
    macos)
        command -v c++ >/dev/null || {
            echo "A C++ compiler is missing: install it with xcode-select --install." >&2
            return 1
        }
        if ! command -v brew >/dev/null; then
            echo "Homebrew (brew) is missing, which knows what is installed; with it:" >&2
            tell_missing "brew install" $(packages_elsewhere 4 "$@")
        else
            tell_missing "brew install" $(packages_elsewhere 4 "$@" | missing_by brew list --versions)
        fi
        ;;
    *) echo "How this system calls its packages is not known. On Debian these are needed: $(packages_of "$@" | tr '\n' ' ')" ;;
    esac
}

# Installs the packages of tools/packages.txt that the groups given need and that are missing.
install_on_debian() {
    local wanted=() missing=() as_root=()
    command -v dpkg-query >/dev/null || return 0 # the build says what it misses
    mapfile -t wanted < <(packages_of "$@")
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
    cmake -S . -B "$folder" ${generator[@]+"${generator[@]}"} -DKAVO_WERROR=ON "$@" >"$folder/configure.log" 2>&1 || {
        cat "$folder/configure.log" >&2
        return 1
    }
}
