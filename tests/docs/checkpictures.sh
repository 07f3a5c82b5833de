#!/usr/bin/env bash
# checkpictures.sh SOURCE PAGE...: every picture in docs/pictures is shown by a page and named by docs/CMakeLists.txt,
# which makes it.
set -euo pipefail
cd "$1"
shift
faults=0
pictures=0
for picture in docs/pictures/*; do
    name="$(basename "$picture")"
    pictures=$((pictures + 1))
    if ! grep -qF "pictures/$name" "$@"; then
        echo "$picture: no page shows it"
        faults=1
    fi
    if ! grep -qE "\b${name%.*}\b" docs/CMakeLists.txt; then
        echo "$picture: docs/CMakeLists.txt does not make it"
        faults=1
    fi
done
echo "$pictures pictures"
[[ "$faults" -eq 0 && "$pictures" -gt 0 ]]
