#!/usr/bin/env bash
# Measures which lines and branches of the module and the host the tests reach: tests/coverage.sh
# Writes the table to stdout and pages with every line to build/coverage/pages/. Branches that only exceptions of the
# language take are left out. Needs gcovr.
set -euo pipefail
cd "$(dirname "$(realpath "$0")")/.."

if ! command -v gcovr > /dev/null; then
    echo "coverage.sh: gcovr is not installed (package gcovr)" >&2
    exit 2
fi
cmake --preset coverage > /dev/null
cmake --build --preset coverage
find build/coverage -name '*.gcda' -delete
# Counters keep a library mapped, so what unloads one is left out.
ctest --test-dir build/coverage -j "$(nproc)" --output-on-failure --exclude-regex '^reload'

mkdir -p build/coverage/pages
report=(gcovr --root . --object-directory build/coverage --exclude-throw-branches --exclude-unreachable-branches)
for wing in KivCharacterization host; do
    echo "== $wing"
    "${report[@]}" --filter "$wing/" --html-details "build/coverage/pages/$wing.html"
    "${report[@]}" --filter "$wing/" --branches
    "${report[@]}" --filter "$wing/" --print-summary --output /dev/null
done
