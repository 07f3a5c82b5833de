#!/usr/bin/env bash
# test.sh: installs what is missing, builds with warnings as errors, and runs every test. Without a display; tests that
# need one bring their own.
set -euo pipefail
cd "$(dirname "$(realpath "$0")")"

echo "== Packages"
packaging/install-packages.sh packaging/{build,test,package}-packages.txt
echo "== Build (build/dev)"
cmake --preset dev >/dev/null
cmake --build --preset dev
echo "== Tests"
ctest --preset dev -j "$(nproc)" --label-exclude gui
echo "== Tests in a window"
# One at a time, and once more where a virtual display did not come up.
ctest --preset dev --label-regex gui --repeat until-pass:2
