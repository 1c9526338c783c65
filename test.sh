#!/usr/bin/env bash
# Sets a Debian machine up, builds the module four ways and runs all tests: release (with the checks
# of format, layers and exports), sanitizers, Windows under Wine, and clang's warnings.
#   ./test.sh            everything
#   ./test.sh release    only the named builds, of: release asan-ubsan windows clang debug tidy
set -euo pipefail
cd "$(dirname "$0")"

tools/need-packages g++ cmake ninja-build ccache googletest python3 pkg-config binutils git \
    libeigen3-dev clang-14 clang-format-14 g++-mingw-w64-x86-64-posix wine wine64

export CCACHE_NOHASHDIR=1 CCACHE_BASEDIR="$PWD" CCACHE_DIR="${CCACHE_DIR:-$HOME/.cache/ccache}"
# Precompiled headers go through the cache only with these.
export CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime
export CTEST_OUTPUT_ON_FAILURE=1
jobs=$(nproc)

step() { printf '\n== %s (%d s)\n' "$1" "$SECONDS"; }

# Only the last line of a build that succeeds, all of one that fails.
quietly() {
    local log
    log=$(mktemp)
    if "$@" >"$log" 2>&1; then tail -n 1 "$log"; else cat "$log"; rm -f "$log"; return 1; fi
    rm -f "$log"
}

build() {
    step "build $1"
    quietly cmake --preset "$1"
    quietly cmake --build --preset "$1" -j "$jobs"
}

test_build() {
    build "$1"
    step "test $1"
    ctest --preset "$1" -j "$jobs"
}

builds=("$@")
[ ${#builds[@]} -gt 0 ] || builds=(release asan-ubsan windows clang)
for name in "${builds[@]}"; do
    case $name in
        release | asan-ubsan | windows | debug) test_build "$name" ;;
        clang) build clang ;;  # warnings are errors; the tests ran above
        tidy)
            tools/need-packages clang-tidy-14
            build clang
            git ls-files 'src/*.cpp' 'apps/*.cpp' | grep -v '^src/platform/windows/' |
                xargs -P "$jobs" -n 4 clang-tidy-14 -p build/clang --quiet 2>/dev/null || true
            ;;
        *) echo "unknown build: $name" >&2; exit 2 ;;
    esac
done
step "all passed"
