#!/usr/bin/env bash
# commands.sh PLAYER SAMPLES PAGE...: the commands of these pages that open a window do, and show their motions.
set -euo pipefail
# shellcheck source=tests/gui/hand.sh
source "$(dirname "$(realpath "$0")")/hand.sh"
player="$(realpath "$1")"
samples="$(realpath "$2")"
shift 2
pages=()
for page in "$@"; do
    pages+=("$(realpath "$page")")
done
on_a_display "$player" "$samples" "${pages[@]}"
in_a_folder
cp "$samples"/*.bvh .
cp walk.bvh take.bvh
mapfile -t commands < <(sed -n '/^```console/,/^```$/ s/^\$ kivplayer \([^#]*\).*/\1/p' "${pages[@]}")
((${#commands[@]} > 0)) || fail "there are such commands"
for command in "${commands[@]}"; do
    read -r -a arguments <<<"$command"
    echo "kivplayer ${arguments[*]}"
    rm -f state.json
    quitting=
    play "$player" "${arguments[@]}"
    holds '.actors | length > 0' || fail "it shows a motion"
    holds '.errors == []' || fail "nothing went wrong"
    quit
done
