#!/usr/bin/env bash
# Compiles the module and the host with GCC and clang, as C++17 and as C++20, with warnings as errors, and builds nothing.
#   KIV_COMPILERS  "g++ clang++-14" by default; one that is not installed is named and skipped
#   KIV_STANDARDS  "c++17 c++20" by default
set -euo pipefail
cd "$(dirname "$(realpath "$0")")/.."

generated=$(mktemp -d)
trap 'rm -rf "$generated"' EXIT
embed() { # FILE GENERATED: as host/KivReader/CMakeLists.txt does
    cmake "-DINPUT=host/KivReader/profiles/$1" "-DOUTPUT=$generated/$2" -P host/KivReader/embedprofile.cmake
}
embed humanoid.profile humanoidprofiletext.inc
embed body.words bodywordstext.inc
flags=(-fsyntax-only -Wall -Wextra -Wconversion -Werror -I . -I include -I "$generated")
failed=0
for compiler in ${KIV_COMPILERS:-g++ clang++-14}; do
    if ! command -v "$compiler" > /dev/null; then
        echo "skipped: $compiler is not installed"
        continue
    fi
    for standard in ${KIV_STANDARDS:-c++17 c++20}; do
        sources=($(git ls-files 'KivCharacterization/*.cpp' 'host/*.cpp'))
        if printf '%s\0' "${sources[@]}" | xargs -0 -n 1 -P "$(nproc)" "$compiler" "-std=$standard" "${flags[@]}"; then
            echo "$compiler, $standard: ${#sources[@]} sources, no warning"
        else
            echo "$compiler, $standard: failed"
            failed=1
        fi
    done
done
exit "$failed"
