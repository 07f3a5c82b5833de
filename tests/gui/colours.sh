#!/usr/bin/env bash
# colours.sh PLAYER MOTION: contacts are painted through their panel, on the body and inside it.
set -euo pipefail
# shellcheck source=tests/gui/hand.sh
source "$(dirname "$(realpath "$0")")/hand.sh"
player="$(realpath "$1")"
motion="$(realpath "$2")"
on_a_display "$player" "$motion"
in_a_folder
play "$player" --show contacts --frame 20 "$motion"
middle grid
key space
until_holds "Space pauses" '.playing == false'
key ctrl+Home
until_holds "the first frame is shown" '.frame == 0'

pictures=0
picture() { # of the scene as it is now
    pictures=$((pictures + 1))
    until_holds "no command is on its way" '.commands == 0' >/dev/null
    after_frames 3
    key F12
    until_holds "a picture is written" ".pictures | length == $pictures" >/dev/null
}
picture
picture
cmp -s kivplayer-0001.png kivplayer-0002.png || fail "two pictures of one moment are the same"
echo "ok: two pictures of one moment are the same"

click contactColours
until_holds "the panel opens" '.places | has("contactJoint")'
after_frames 3

painted=0
paint() { # JOINT
    local joint="$1" i
    click contactJoint
    until_holds "the joints drop down" '.places | keys | any(startswith("joint:"))'
    middle "$(tell '.places | keys | map(select(startswith("joint:"))) | .[0]')"
    for ((i = 0; i < 60; ++i)); do # the list is longer than what is seen of it
        holds ".places | has(\"joint:$joint\")" && break
        xdotool click 5
        after_frames 4
    done
    click "joint:$joint"
    until_holds "$joint is chosen" '.places | has("contactJoint")'
    after_frames 3
    holds ".contactColours | has(\"$joint\") | not" || fail "nothing is painted before it is asked for"
    click paint
    until_holds "$joint is painted" ".contactColours | has(\"$joint\")"
    painted=$((painted + 1))
    holds ".contactColours | keys | length == $painted" || fail "and nothing else"
    picture
    cmp -s "kivplayer-000$((pictures - 1)).png" "kivplayer-000$pictures.png" && fail "the colour of $joint is seen"
    echo "ok: the colour of $joint is seen"
}
paint Hips # inside the body
paint LeftHandMiddle3
quit
