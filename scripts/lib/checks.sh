# shellcheck shell=bash
# SPDX-License-Identifier: GPL-3.0-or-later
# The steps of scripts/check: for each a line of description and a function check_NAME that fails (or ends
# the script) when something is wrong.

describe() {
    case $1 in
        format) echo "the layout of .clang-format" ;;
        arrows) echo "each folder includes only what lies below it" ;;
        headers) echo "every header compiles alone" ;;
        reference) echo "the shipped reference data are those of their source tables" ;;
        warnings) echo "the release, warnings as errors" ;;
        sanitize) echo "warnings of clang as errors; every test under the address and undefined-behaviour sanitizers" ;;
        tidy) echo "clang-tidy over every source file" ;;
        fuzz) echo "every fuzz target for ${FUZZ_SECONDS:-15} s" ;;
    esac
}

check_warnings() {
    KALORIA_WERROR=ON build release
}

# With the fuzz targets, which share all but their own objects with the tests.
check_sanitize() {
    timed "sanitize build" build sanitize
    timed "tests" ctest --preset sanitize -j "$CORES"
}

# Other versions lay the same code out differently, so only the one that .clang-format is written for counts.
check_format() {
    local formatter
    for formatter in clang-format-14 clang-format; do
        if "$formatter" --version 2>/dev/null | grep -q 'version 14\.'; then
            sources -name '*.h' -o -name '*.cpp' | xargs "$formatter" --dry-run --Werror
            return
        fi
    done
    say "format: SKIPPED, clang-format 14 is not here (found: $(clang-format --version 2>&1 | head -1))"
}

# A database of its own: without precompiled headers, which clang-tidy could not read if another compiler
# made them.
check_tidy() {
    quietly cmake --preset release -B build/tidy -D CMAKE_CXX_COMPILER=clang++ \
        -D CMAKE_DISABLE_PRECOMPILE_HEADERS=ON
    # What Qt's tools write is included by some sources.
    local generated
    mapfile -t generated < <(ninja -C build/tidy -t targets all | sed -nE 's/^([^/ ]+_autogen): .*/\1/p')
    quietly cmake --build build/tidy --target "${generated[@]}"
    sources -name '*.cpp' -not -path 'tests/fuzz/*' |
        xargs --max-procs="$CORES" --max-args=1 scripts/lib/tidy-one build/tidy
}

# A header that its own source includes before anything else is seen alone whenever that source is compiled
# without precompiled headers, as the sanitize step does.
check_headers() {
    local header source
    sources -name '*.h' | while read -r header; do
        source=${header%.h}.cpp
        [[ -f $source && $(grep -m1 '^#include' "$source") == "#include \"$header\"" ]] || echo "$header"
    done | xargs --max-procs="$CORES" --max-args=1 scripts/lib/header-alone
}

check_reference() {
    python3 scripts/make-reference-data --check
}

# folder | folders of ours it may include | other headers it may include (extended regular expression).
# STD are the names without a slash or a suffix, the C++ library's; POSIX those of the system.
STD='[a-z_0-9]+'
POSIX='[a-z_0-9/]+\.h'
ARROWS=(
    "engine|engine|$STD"
    "data|engine data|$STD|$POSIX|pugixml\.hpp|fmt/.*"
    "reports|engine data reports|$STD|$POSIX|fmt/.*"
    "application|engine data reports application|$STD|$POSIX|fmt/.*|nlohmann/.*"
    "ui|engine data reports application ui|$STD|$POSIX|Q[A-Za-z/]+|qcustomplot\.h|fmt/.*"
    "cli|engine data reports application cli|$STD|$POSIX|fmt/.*|nlohmann/.*|CLI/.*"
)

check_arrows() {
    local arrow folder ours others bad=0
    for arrow in "${ARROWS[@]}"; do
        IFS='|' read -r folder ours others <<<"$arrow"
        # Every #include of the folder that is none of the allowed ones.
        if grep -nEr --include='*.h' --include='*.cpp' '^[[:space:]]*#[[:space:]]*include' "$folder" |
            grep -vE "include[[:space:]]*(\"(${ours// /|})/|<($others)>)"; then
            echo "^ $folder may include only: $ours, <$others>"
            bad=1
        fi
    done
    return "$bad"
}

check_fuzz() {
    build sanitize tests/fuzz/all
    local programs=(build/sanitize/bin/*_fuzz)
    [[ -x ${programs[0]} ]] || fail "no fuzz target was built"
    printf '%s\n' "${programs[@]}" |
        xargs --max-procs="$CORES" --max-args=1 scripts/lib/fuzz-one "${FUZZ_SECONDS:-15}"
}
