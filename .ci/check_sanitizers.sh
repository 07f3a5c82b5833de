#!/usr/bin/env bash
# Builds with sanitizers and runs the tests: check_sanitizers.sh [--all]
# By itself what finds most in little time: the module's tests and whole loads under AddressSanitizer and
# UndefinedBehaviorSanitizer, threads and frame loop under ThreadSanitizer. With --all every test under both.
set -euo pipefail
cd "$(dirname "$(realpath "$0")")/.."

check() { # PRESET [TARGET...]: those targets and their tests; without any, everything.
    local preset="$1"
    shift
    echo "== $preset"
    cmake --preset "$preset" > /dev/null
    if (($# == 0)); then
        cmake --build --preset "$preset"
        ctest --preset "$preset" -j "$(nproc)" --label-exclude 'gui|packaging|docs'
        [[ "$preset" != asan ]] || ctest --preset asan-drivers -j "$(nproc)"
    else
        cmake --build --preset "$preset" --target KivRoot "$@"
        local alternatives
        alternatives="$(IFS='|' && echo "$*")"
        ctest --preset "$preset" -j "$(nproc)" --tests-regex "^($alternatives)\\."
    fi
}

if [[ "${1:-}" == --all ]]; then
    check asan
    check tsan
else
    check asan unit scenario allocationfailure
    check tsan taskcommandtest soak
fi
