#!/usr/bin/env bash
# Builds with sanitizers and runs the tests: check_sanitizers.sh [--all]
# By itself what finds most in little time: the module's tests and whole loads under AddressSanitizer and
# UndefinedBehaviorSanitizer, threads and frame loop under ThreadSanitizer. With --all every test under both.
#   KIV_TSAN_OSG  the libraries of an OpenSceneGraph that is built with ThreadSanitizer, too: docs/measurements/reliability.md
set -euo pipefail
cd "$(dirname "$(realpath "$0")")/.."

build() { # PRESET ARGUMENT...
    echo "== $1"
    cmake --preset "$1" > /dev/null
    cmake --build --preset "$@"
}

check() { # PRESET TARGET...: those test programs
    local preset="$1" alternatives
    shift
    build "$preset" --target KivRoot "$@"
    alternatives="$(IFS='|' && echo "$*")"
    ctest --preset "$preset" -j "$(nproc)" --tests-regex "^($alternatives)\\."
}

if [[ "${1:-}" != --all ]]; then
    check asan unit scenario allocationfailure
    check tsan taskcommandtest soak
    exit
fi
build asan
ctest --preset asan -j "$(nproc)" --label-exclude packaging
ctest --preset asan-drivers -j "$(nproc)"
build tsan
if [[ -n "${KIV_TSAN_OSG:-}" ]]; then
    # Its plugins, which need not be built so, are the system's.
    export LD_LIBRARY_PATH="$KIV_TSAN_OSG"
    OSG_LIBRARY_PATH="$(pkg-config --variable=libdir openscenegraph-osg)"
    export OSG_LIBRARY_PATH
fi
ctest --preset tsan -j "$(nproc)" --label-exclude packaging
