#!/usr/bin/env bash
# Builds with sanitizers and runs the tests: check_sanitizers.sh [--all]
# By itself what finds most in little time: the module's tests and whole loads under AddressSanitizer and
# UndefinedBehaviorSanitizer, threads and frame loop under ThreadSanitizer. With --all every test under the first, and
# those of module and host under the second.
set -euo pipefail
cd "$(dirname "$(realpath "$0")")/.."

check() { # PRESET TARGET...: those test programs
    local preset="$1" alternatives
    shift
    echo "== $preset"
    cmake --preset "$preset" > /dev/null
    cmake --build --preset "$preset" --target KivRoot "$@"
    alternatives="$(IFS='|' && echo "$*")"
    ctest --preset "$preset" -j "$(nproc)" --tests-regex "^($alternatives)\\."
}

if [[ "${1:-}" != --all ]]; then
    check asan unit scenario allocationfailure
    check tsan taskcommandtest soak
    exit
fi
echo "== asan"
cmake --preset asan > /dev/null
cmake --build --preset asan
ctest --preset asan -j "$(nproc)" --label-exclude 'packaging|docs'
ctest --preset asan-drivers -j "$(nproc)"
# The player's tests are not among these: most of their time is the graphics driver's.
check tsan unit scenario soak reload taskcommandtest animationtest manipulator_test memorysharetest renderstatetest \
    erroroperatortest commondeftest KivReaderDocumentTest KivReaderProfileTest KivReaderSkeletonTest
