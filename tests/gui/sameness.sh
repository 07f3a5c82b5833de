#!/usr/bin/env bash
# sameness.sh PLAYER MOTION OVERLAYS: the window's picture of a frame is the one that is made without a display.
set -euo pipefail
# shellcheck source=tests/gui/hand.sh
source "$(dirname "$(realpath "$0")")/hand.sh"
player="$(realpath "$1")"
motion="$(realpath "$2")"
overlays="$3"
on_a_display "$player" "$motion" "$overlays"
in_a_folder
camera=(--camera-position 210,-420,150 --camera-target 0,20,85 --show "$overlays")
play "$player" "${camera[@]}" --frame 60 "$motion"
key space
until_holds "Space pauses" '.playing == false'
key ctrl+Home
until_holds "the first frame is shown" '.frame == 0'
for ((i = 1; i <= 12; ++i)); do
    key period
    until_holds "frame $i" ".frame == $i" >/dev/null
done
after_frames 2
key F12
until_true "F12 writes a picture" test -s kivplayer-0001.png
size="$(tell '.picture | map(tostring) | join(",")')"
quit
"$player" --quiet "${camera[@]}" --frame 12 --resolution "$size" --reference kivplayer-0001.png \
    --reference-difference difference.png "$motion" || fail "the pictures are the same"
echo "ok: the pictures of $size pixels are the same"
code=0
"$player" --quiet "${camera[@]}" --frame 40 --resolution "$size" --reference kivplayer-0001.png "$motion" 2>/dev/null ||
    code=$?
[[ "$code" == 3 ]] || fail "another frame is another picture"
echo "ok: another frame is another picture"
