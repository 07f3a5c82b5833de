#!/usr/bin/env bash
# Measures which lines and decisions of the module and the host the tests reach: tests/coverage.sh
# A decision is one outcome of one condition of the source; what a compiler adds for exceptions is none. Writes the
# table and every decision that was not reached to stdout, and a page for every source to build/coverage/pages/.
# Child processes that a test ends are not counted. Needs clang 14 and its tools.
set -euo pipefail
cd "$(dirname "$(realpath "$0")")/.."
build=build/coverage

for tool in clang++-14 llvm-profdata-14 llvm-cov-14; do
    if ! command -v "$tool" > /dev/null; then
        echo "coverage.sh: $tool is not installed (packages clang-14, libclang-rt-14-dev and llvm-14)" >&2
        exit 2
    fi
done
cmake --preset coverage > /dev/null
cmake --build --preset coverage
rm -rf "$build/profiles" "$build/pages"
# Programs that run at once add their counts to files of their own; %2m: up to two for each binary.
export LLVM_PROFILE_FILE=$PWD/$build/profiles/%2m.profraw
# The tests of the interface run nothing of ours, and look at what an optimised library takes from another.
ctest --test-dir "$build" -j "$(nproc)" --output-on-failure --exclude-regex '^interface'

llvm-profdata-14 merge -sparse "$build"/profiles/*.profraw -o "$build/all.profdata"
mapfile -t binaries < <(find "$build/lib" "$build/tests/bin" -maxdepth 1 -type f -executable)
counts=(-instr-profile "$build/all.profdata" "${binaries[0]}" "${binaries[@]/#/-object=}")
llvm-cov-14 show "${counts[@]}" -show-branches=count -format=html -output-dir "$build/pages" \
    -ignore-filename-regex '/(tests|tools)/'
llvm-cov-14 export "${counts[@]}" | tests/coverage.py KivCharacterization host
