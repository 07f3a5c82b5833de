#!/usr/bin/env bash
# sameness.sh PLAYER MOTION OVERLAYS WORSTPIXEL: the window's picture of a frame is the one that is made without a display,
# pixel for pixel.
set -euo pipefail
# shellcheck source=tests/gui/hand.sh
source "$(dirname "$(realpath "$0")")/hand.sh"
player="$(realpath "$1")"
motion="$(realpath "$2")"
overlays="$3"
worstpixel="$(realpath "$4")"
on_a_display "$player" "$motion" "$overlays" "$worstpixel"
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
differs() { # FRAME: by how much a pixel of that frame's picture differs at most
    "$player" --quiet "${camera[@]}" --frame "$1" --resolution "$size" --output "frame-$1.png" "$motion"
    "$worstpixel" "frame-$1.png" kivplayer-0001.png
}
# One of four samples on an edge may fall to either side of it: the two are projected in different ways.
largest=80
same="$(differs 12)"
((same <= largest)) || fail "the pictures are the same: a pixel differs by $same, at most $largest are allowed"
echo "ok: the pictures of $size pixels are the same: no pixel differs by more than $same"
other="$(differs 40)"
((other > largest)) || fail "another frame is another picture: no pixel differs by more than $other"
echo "ok: another frame is another picture: a pixel differs by $other"
