# shellcheck shell=bash disable=SC2034
# SPDX-License-Identifier: GPL-3.0-or-later
# The one list of the distribution's packages that the project stands on, and their installation.

# To build, run and test; docs/architecture.md says what each is for.
BUILD_PACKAGES=(
    g++ cmake ninja-build ccache
    libpugixml-dev libfmt-dev nlohmann-json3-dev libcli11-dev libxlsxwriter-dev
    qt6-base-dev qt6-svg-dev libqcustomplot-dev
    libgtest-dev libgmock-dev libbenchmark-dev zlib1g-dev
)

# In addition for scripts/check. Names without a version: whatever clang the distribution takes as its own.
CHECK_PACKAGES=(clang libclang-rt-dev clang-tidy clang-format pkgconf python3)

# install_packages PACKAGE...: installs what is missing, and does nothing when all is there.
install_packages() {
    if ! command -v dpkg-query apt-get >/dev/null; then
        say "No apt on this system; needed are the equivalents of: $*"
        return
    fi
    local missing
    mapfile -t missing < <(missing_packages "$@")
    if ((${#missing[@]} == 0)); then
        return
    fi
    local apt=(env DEBIAN_FRONTEND=noninteractive apt-get -q -o DPkg::Lock::Timeout=120)
    local how=""
    if ((EUID != 0)); then
        command -v sudo >/dev/null ||
            fail "packages are missing and there is no sudo; as root: apt-get install ${missing[*]}"
        apt=(sudo "${apt[@]}")
        how=" through sudo"
    fi
    say "Installing with apt-get${how}: ${missing[*]}"
    # The lists of packages are fetched only when they are absent or too old to install from.
    if ! apt-get --simulate install "${missing[@]}" >/dev/null 2>&1; then
        quietly "${apt[@]}" update
        quietly "${apt[@]}" install --yes --no-install-recommends "${missing[@]}"
    elif ! quietly "${apt[@]}" install --yes --no-install-recommends "${missing[@]}"; then
        say "Trying again with new lists of packages"
        quietly "${apt[@]}" update
        quietly "${apt[@]}" install --yes --no-install-recommends "${missing[@]}"
    fi
}

# Prints those of the given packages that are not installed.
missing_packages() {
    local package
    for package in "$@"; do
        [[ $(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null) == installed ]] || echo "$package"
    done
}
