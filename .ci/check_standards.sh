#!/usr/bin/env bash
# Compiles the module and the host with GCC and clang, as C++17 and as C++20, with warnings as errors, and builds nothing.
#   KIV_COMPILERS  "g++ clang++-14" by default; one that is not installed is named and skipped
#   KIV_STANDARDS  "c++17 c++20" by default
set -euo pipefail
cd "$(dirname "$(realpath "$0")")/.."

messages=$(mktemp)
trap 'rm -f "$messages"' EXIT
flags=(-fsyntax-only -Wall -Wextra -Wconversion -Werror -I . -I include)
failed=0
checked=0
for compiler in ${KIV_COMPILERS:-g++ clang++-14}; do
    if ! command -v "$compiler" > /dev/null; then
        echo "skipped: $compiler is not installed"
        continue
    fi
    for standard in ${KIV_STANDARDS:-c++17 c++20}; do
        for source in KivCharacterization/*/*.cpp host/*/*.cpp; do
            checked=$((checked + 1))
            if ! "$compiler" "-std=$standard" "${flags[@]}" "$source" 2> "$messages"; then
                failed=$((failed + 1))
                echo "failed ($compiler, $standard): $source"
                head -n "${KIV_MESSAGE_LINES:-20}" "$messages"
            fi
        done
    done
done
echo "$checked compilations, $failed failed"
[ "$failed" -eq 0 ]
