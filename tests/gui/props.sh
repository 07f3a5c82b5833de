#!/usr/bin/env bash
# props.sh PLAYER MOTION: a mouse moves and turns the props of a motion.
set -euo pipefail
# shellcheck source=tests/gui/hand.sh
source "$(dirname "$(realpath "$0")")/hand.sh"
player="$(realpath "$1")"
motion="$(realpath "$2")"
on_a_display "$player" "$motion"
in_a_folder
play "$player" --time 2.1 "$motion"

middle grid # where no key goes astray
key space
until_holds "Space pauses" '.playing == false'
key k # nearer
until_holds "the actor is followed" '.followed == 0'
key p
until_holds "p shows the draggers" '.propList[0].dragger and (.propList[0].handles | length == 3)'
after_frames 3

# The arrow that is seen longest, from its middle to its handle.
longest() { # LIST: "X Y DX DY" with D of length 1
    tell ".propList[0] | .seenAt as \$m | .$1 |
        map({x: .[0], y: .[1], dx: (.[0] - \$m[0]), dy: (.[1] - \$m[1])}) |
        map(. + {long: (.dx * .dx + .dy * .dy | sqrt)}) | max_by(.long) |
        \"\(.x) \(.y) \(.dx / .long) \(.dy / .long)\""
}
pull() { # LIST PIXELS: presses on a handle and pulls it outwards; the button stays down
    local x y dx dy
    read -r x y dx dy < <(longest "$1")
    point "$x" "$y"
    xdotool mousedown 1
    until_holds "a $1 arrow is taken hold of" '.propList[0].dragged'
    point "$(awk -v a="$x" -v d="$dx" -v l="$2" 'BEGIN { print a + d * l }')" \
        "$(awk -v a="$y" -v d="$dy" -v l="$2" 'BEGIN { print a + d * l }')"
}
moved='(.propList[0].position | map(. * .) | add | sqrt)'

pull handles 40
until_holds "its moves are reported" ".propList[0].changes > 0 and $moved > 1"
key Escape
until_holds "Escape ends the drag and takes it back" ".propList[0].dragged == false and $moved < 0.001"
xdotool mouseup 1
after_frames 3
holds .running || fail "Escape in a drag must not quit"

pull handles 40
until_holds "it moves again" "$moved > 1"
xdotool mouseup 1
until_holds "letting go ends the drag" '.propList[0].dragged == false and .propList[0].drags == 2'
place="$(tell '.propList[0].position | @json')"
key space
until_holds "it plays" .playing
after_frames 5
key space
until_holds "it stands" '.playing == false'
holds ".propList[0].position == $place" || fail "the pose survives playback"
echo "ok: the pose survives playback"

read -r x y < <(tell '.propList[0].seenAt | "\(.[0]) \(.[1])"')
point "$x" "$y"
xdotool mousedown 1
until_holds "the props itself is taken hold of" '.propList[0].dragged'
point "$(awk -v a="$x" 'BEGIN { print a + 30 }')" "$y"
until_holds "and moves or turns" ".propList[0].position != $place or (.propList[0].angles | map(fabs) | add) > 1"
xdotool mouseup 1
until_holds "until it is let go" '.propList[0].dragged == false'

# A drag ends where it is when the keyboard goes to another window.
"$player" --quiet --state-file other.json 2>/dev/null &
other=$!
# A window asks for the keyboard while it opens: only one that has drawn its bar leaves it to others.
until_true "another window opens" eval 'jq -e ".places | has(\"timeline\")" other.json >/dev/null 2>&1'
away="$(xdotool search --onlyvisible --name '^kivplayer$' | grep -vx "$window")"
xdotool windowmove "$away" 1390 890 # out of the way
until_true "it is out of the way" eval 'xdotool getwindowgeometry "$away" | grep -q "Position: 1390,890"'
drags="$(tell '.propList[0].drags')"
xdotool windowfocus --sync "$window"
pull handles 30
until_holds "a drag is under way" '.propList[0].dragged'
xdotool windowfocus --sync "$away"
until_holds "another window's keyboard ends it, and its observer is told" \
    ".propList[0].dragged == false and .propList[0].drags == $drags + 1"
place="$(tell '.propList[0].position | @json')"
xdotool mousemove_relative -- 25 25
after_frames 5
holds ".propList[0].position == $place and .propList[0].dragged == false" || fail "the pointer moves it no more"
echo "ok: the pointer moves it no more"
xdotool mouseup 1
kill "$other"
wait "$other" || true
xdotool windowfocus --sync "$window"
after_frames 3
holds ".propList[0].drags == $drags + 1" || fail "letting go of the button is no second end"
pull handles 20
xdotool mouseup 1
until_holds "the next drag is one like any other" \
    ".propList[0].dragged == false and .propList[0].drags == $drags + 2"

key p
until_holds "p hides the draggers" '.propList[0].dragger == false'
key P
until_holds "Shift+p shows those of the contact points" '.propList[0].contactDragger and (.propList[0].contactHandles | length == 3)'
after_frames 3
before="$(tell '.propList[0] | [.position, .angles] | @json')"
contact="$(tell '.propList[0].contactPoint | @json')"
pull contactHandles 25
until_holds "the contact point moves" ".propList[0].contactPoint != $contact"
xdotool mouseup 1
until_holds "and is let go" '.propList[0].dragged == false'
holds "[.propList[0].position, .propList[0].angles] == $before" || fail "the props stays where it is"
echo "ok: the props stays where it is"
key P
until_holds "Shift+p hides them" '.propList[0].contactDragger == false'

# The numbers of the panel: what is typed goes out as a command and comes back from the scene.
middle "position:0#LeftProps"
x="$(tell '.places["position:0#LeftProps"] | .[0] + .[2] / 6')"
y="$(tell '.places["position:0#LeftProps"] | .[1] + .[3] / 2')"
point "$x" "$y"
xdotool click --repeat 2 --delay 60 1
until_holds "a number is edited" .typing
key ctrl+a
xdotool type "12.5"
key Return
until_holds "the numeric pose comes back from the scene" '(.propList[0].inScene[0] - 12.5 | fabs) < 1e-6'
until_holds "the keyboard is given back" '.typing == false'
quit
