# shellcheck shell=bash
# SPDX-License-Identifier: GPL-3.0-or-later
# What the scripts share. To be sourced with `set -euo pipefail` in force; leaves the caller in the project's
# root folder. What the scripts themselves say goes to standard error: standard output is the programs'.

ROOT=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
cd "$ROOT" || exit
CORES=$(nproc)

# Precompiled headers are cached only when told that their time stamps do not matter.
export CCACHE_SLOPPINESS=${CCACHE_SLOPPINESS:-pch_defines,time_macros,include_file_mtime,include_file_ctime}

say() { echo "== $*" >&2; }

fail() {
    echo "${0##*/}: $*" >&2
    exit 1
}

# Runs a command and shows what it printed only when it fails, on standard error.
quietly() {
    local output
    if output=$("$@" 2>&1); then
        return
    fi
    printf '%s\n' "$output" >&2
    echo "${0##*/}: failed: $*" >&2
    return 1
}

# timed NAME COMMAND...: runs a command and says how long it took, by the clock and in computing.
timed() {
    local TIMEFORMAT="== $1: %0R s (computing: user %0U s, system %0S s)"
    shift
    time "$@"
}

# build PRESET [TARGET...]: configures and builds, all targets when none is named. KALORIA_WERROR=ON in the
# environment makes warnings errors, from then on in that build folder.
build() {
    local preset=$1
    shift
    quietly cmake --preset "$preset" ${KALORIA_WERROR:+-D KALORIA_WERROR="$KALORIA_WERROR"}
    cmake --build --preset "$preset" -j "$CORES" ${1+--target "$@"} >&2
}

# Prints our own C++ files that match the find expressions, sorted.
sources() {
    local folders=()
    local folder
    for folder in engine data reports application ui cli tests benchmarks; do
        [[ -d $folder ]] && folders+=("$folder")
    done
    find "${folders[@]}" -type f \( "$@" \) | sort
}

# shellcheck source=scripts/lib/packages.sh
source "$ROOT/scripts/lib/packages.sh"
