#!/usr/bin/env bash
# keyboard.sh PLAYER MOTION: the panels are worked by the keyboard alone.
set -euo pipefail
# shellcheck source=tests/gui/hand.sh
source "$(dirname "$(realpath "$0")")/hand.sh"
player="$(realpath "$1")"
motion="$(realpath "$2")"
on_a_display "$player" "$motion"
in_a_folder
play "$player" "$motion"
middle grid # without a window manager the keyboard goes where the pointer is
key space
until_holds "Space pauses" '.playing == false'

walk_to() { # NAME KEY: presses the key until the control has the keyboard
    local i from
    for ((i = 0; i < 40; ++i)); do
        holds ".control == \"$1\"" && { echo "ok: $2 leads to $1"; return; }
        key "$2"
        from="$(tell .frameTimes.frames)"
        until_true "a frame passes" holds ".frameTimes.frames >= $from + 4" >/dev/null
    done
    fail "$2 leads to $1"
}

key F6
until_holds "F6 gives the keyboard to the panels" '.panel == "##sidebar"'
walk_to grid Down
key space
until_holds "Space presses what has the keyboard" '.grid == false'
holds '.playing == false' || fail "and does nothing else"
key space
until_holds "and presses it again" '.grid'
walk_to visible0 Up
walk_to name0 Right
key Return
until_holds "Enter edits" .typing
key ctrl+a
xdotool type "Bert"
key Return
until_holds "Enter ends the edit" '.actors[0].name == "Bert"'
until_holds "the keyboard stays with the panels" '.typing == false and .panel == "##sidebar"'
walk_to contactColours Down
key space
until_holds "Space opens a part of the panel" '.places | has("paint")'
key Escape
until_holds "Escape gives the keyboard back" '.panel == ""'
key g
until_holds "and keys work the scene again" '.grid == false'
key F6
until_holds "F6 takes it to the panels again" '.panel == "##sidebar"'
key F6
until_holds "and to the bar" '.panel == "##bar"'
key F6
until_holds "and back to the scene" '.panel == ""'
quit
