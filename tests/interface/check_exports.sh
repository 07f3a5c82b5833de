#!/bin/sh
# check_exports.sh LIBRARY LIST: compares what a shared library defines for others with a list, letter for letter.
set -eu
nm -DC --defined-only "$1" | cut -c 18- | sed 's/^. //' | LC_ALL=C sort -u |
    diff -u --label "$2" --label "$1" "$2" - && echo "exports as listed"
