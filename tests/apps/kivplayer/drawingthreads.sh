#!/usr/bin/env bash
# drawingthreads.sh PLAYER MOTION: the software renderer has no threads of its own in the player, but where the
# environment asks for them.
set -euo pipefail

player="$(realpath "$1")"
motion="$(realpath "$2")"
folder="$(mktemp -d)"
running=
trap '[[ -z "$running" ]] || kill "$running" || true; rm -rf "$folder"' EXIT
cd "$folder"

threads_while_drawing() { # the names, a line each
    rm -f picture-*.png
    "$player" --quiet --resolution 128,96 --samples 1 --output 'picture-{frame:04}.png' "$motion" &
    running=$!
    until [[ -e picture-0000.png ]]; do
        kill -0 "$running" || { echo "the player ended before its first picture" >&2; exit 1; }
        sleep 0.05
    done
    cat "/proc/$running/task"/*/comm
    kill "$running"
    wait "$running" || true
    running=
}

unset LP_NUM_THREADS
threads_while_drawing >of-itself.txt
grep -q '^kivplayer' of-itself.txt
if grep '^llvmpipe-' of-itself.txt; then
    echo "the renderer has threads of its own"
    exit 1
fi
export LP_NUM_THREADS=2
threads_while_drawing >asked-for.txt
grep -q '^llvmpipe-' asked-for.txt || { echo "it has none where they are asked for:"; cat asked-for.txt; exit 1; }
echo "none of itself, $(grep -c '^llvmpipe-' asked-for.txt) where they are asked for"
