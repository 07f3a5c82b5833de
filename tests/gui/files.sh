#!/usr/bin/env bash
# files.sh PLAYER MOTION OTHER DROPPER: files are dropped on the window, replaced, changed while they are watched, and
# removed.
set -euo pipefail
# shellcheck source=tests/gui/hand.sh
source "$(dirname "$(realpath "$0")")/hand.sh"
player="$(realpath "$1")"
motion="$(realpath "$2")"
other="$(realpath "$3")"
dropper="$(realpath "$4")"
on_a_display "$player" "$motion" "$other" "$dropper"
in_a_folder
mkdir "with space"
cp "$motion" "with space/walk 1.bvh"
cp "$motion" watched.bvh
play "$player" --watch --offset 0=0.25 watched.bvh

frames="$(tell '.actors[0].frames')"
"$dropper" "$window" "$folder/with space/walk 1.bvh" || fail "the window takes a dropped file"
until_holds "a dropped file is an actor" '.actors | length == 2'
holds '.actors[1].name == "walk 1"' || fail "it is named after its file"
"$dropper" "$window" --text "no file" && fail "what is no file is refused"
echo "ok: what is no file is refused"

cp "$other" part && mv part watched.bvh
until_holds "a changed file is loaded again as the same actor" \
    ".actors[0].frames != $frames and (.actors | length == 2) and .actors[0].actorId == \"0\""
holds '.actors[0].offset == 0.25' || fail "it starts when it did"
frames="$(tell '.actors[0].frames')"
echo "HIERARCHY nonsense" >watched.bvh
until_holds "a file that does not parse is told of" '.errors | length > 0'
grep -q "watched.bvh:1:" errors.txt || fail "stderr says where"
holds ".actors[0].frames == $frames" || fail "the actor stays as it was"
echo "ok: the actor stays as it was"
cp "$motion" watched.bvh
until_holds "and is loaded once it does" ".actors[0].frames != $frames"

click more1
until_holds "an actor's details open" '.places | has("replace1")'
before="$(tell .duration)"
middle offset1
xdotool click --repeat 2 --delay 60 1
until_holds "the start of an actor is typed" .typing
xdotool type "70.5"
key Return
until_holds "it starts then" '.actors[1].offset == 70.5'
holds ".duration > $before and .duration > 70.5" || fail "the time line is as long as that"
until_holds "the keyboard is given back" '.typing == false'
middle grid # the mouse points at nothing of it
key F6
until_holds "F6 gives the keyboard to the panel" '.panel == "##sidebar"'
for arrow in Down Up; do # they move from where the last edit was
    key "$arrow"
    after_frames 3
done
key Return
until_holds "Enter edits the start, too" .typing
xdotool type -- "-1.5"
key Return
until_holds "an actor can start before the clock" '.actors[1].offset == -1.5'
until_holds "the number is no longer typed" '.typing == false'
key Escape
until_holds "Escape gives the keyboard back" '.panel == ""'
click replace1
until_holds "a path is typed" .typing
xdotool type "$other"
key Return
until_holds "another file takes the actor's place" ".actors[1].file == \"$other\" and (.actors | length == 2)"
holds '.actors[1].offset == -1.5' || fail "which starts at the same time"
until_holds "the keyboard is given back" '.typing == false'
click visible1
until_holds "an actor is hidden" '.actors[1].visible == false'
until_holds "it can be removed" '.places | has("remove1")'
click remove1
until_holds "and is gone" '.actors | length == 1'
after_frames 3 # the panels have moved up
click load
until_holds "a path is typed" .typing
xdotool type "nowhere.bvh"
key Return
until_holds "a file that is not there is told of" '.errors | map(contains("nowhere.bvh")) | any'
quitting=yes
middle grid
key Escape Escape
until_true "Escape quits" eval '! kill -0 "$running" 2>/dev/null'
code=0
wait "$running" || code=$?
running=
[[ "$code" == 1 ]] || fail "the exit code tells of files that could not be read, not $code"
