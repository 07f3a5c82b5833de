#!/usr/bin/env bash
# window.sh PLAYER MOTION: plays with the window: time line, toggles, names, camera, pictures.
set -euo pipefail
# shellcheck source=tests/gui/hand.sh
source "$(dirname "$(realpath "$0")")/hand.sh"
player="$(realpath "$1")"
motion="$(realpath "$2")"
on_a_display "$player" "$motion"
in_a_folder
play "$player" --report fit.json "$motion"

jq -e '.actors[0].matched | length > 0' fit.json >/dev/null || fail "the report is written once all is loaded"
until_holds "it plays" .playing
# The motion's own rate: what the clock gained is what passed, however many frames were drawn.
from="$(date +%s%N)"
key bracketleft bracketleft bracketleft ctrl+Home
until_holds "brackets play slower" '.speed == 0.1 and .frame < .frames / 2'
key ctrl+Home
until_holds "it is at the start" '.time < 0.1 * .duration'
start="$(tell .time)"
from="$(date +%s%N)"
after_frames 12
gained="$(jq ".time - $start" state.json)"
passed="$(awk -v a="$from" -v b="$(date +%s%N)" 'BEGIN { print (b - a) / 1e9 }')"
awk -v g="$gained" -v p="$passed" 'BEGIN { exit !(g > 0.1 * p * 0.5 - 0.05 && g < 0.1 * p * 1.5 + 0.25) }' ||
    fail "at a tenth of its rate $gained s were played in $passed s"
echo "ok: it keeps the motion's own rate ($gained s played in $passed s at a tenth)"
key bracketright bracketright bracketright
until_holds "brackets play faster" '.speed == 1'

middle grid # where no key goes astray
key space
until_holds "Space pauses" '.playing == false'
before="$(tell .frame)"
key period
until_holds "a full stop steps one frame on" ".frame == $before + 1"
key comma
until_holds "a comma steps one frame back" ".frame == $before"
key ctrl+Home
until_holds "Ctrl+Home goes to the first frame" '.frame == 0'
key ctrl+End
until_holds "Ctrl+End goes to the last frame" '.frame == .frames - 1'
key l
until_holds "l ends looping" '.looping == false'

along() { tell ".places.timeline | .[0] + 7 + (.[2] - 14) * $1"; }
height="$(tell '.places.timeline[1] + 11')"
point "$(along 0.25)" "$height"
xdotool mousedown 1
until_holds "the time line is pressed" '(.frame - .frames / 4 | fabs) < 4'
point "$(along 0.6)" "$height"
until_holds "the time line is dragged" '(.frame - .frames * 0.6 | fabs) < 4'
xdotool mouseup 1

toggle() { # KEY STATE: a key puts it over and back again
    local before
    before="$(tell ".$2")"
    key "$1"
    until_holds "$1 puts $2 over" ".$2 != $before"
    key "$1"
    until_holds "$1 puts $2 back" ".$2 == $before"
}
click grid
until_holds "a click takes the grid away" '.grid == false'
key g
until_holds "g brings it back" .grid
toggle m com
toggle c contacts
toggle b skeleton
toggle n names
toggle d shadows
toggle r fit
toggle s statistics
toggle h help

key k
until_holds "k follows the actor" '.followed == 0'
target="$(tell '.camera.target | @json')"
key ctrl+Home
after_frames 3
until_holds "the camera goes along" ".camera.target != $target"
key k
until_holds "k lets it go" '.followed == null'
away="$(tell '.camera.eye | @json')"
key Home
until_holds "Home takes the camera back" ".camera.eye != $away"

key F6
until_holds "F6 gives the keyboard to the panels" '.panel == "##sidebar"'
key F6
until_holds "F6 gives it to the next one" '.panel == "##bar"'
key Escape
until_holds "Escape gives it back" '.panel == ""'

click name0
until_holds "the name is edited in place" .typing
xdotool type "Anna"
key Return
until_holds "Enter renames" '.actors[0].name == "Anna"'
until_holds "the keyboard is given back" '.typing == false'
key space
until_holds "Space plays" .playing

key F12
until_true "F12 writes a picture" test -s kivplayer-0001.png
quit
