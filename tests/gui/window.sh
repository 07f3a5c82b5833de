#!/usr/bin/env bash
# window.sh PLAYER MOTION: plays with the window under a display of its own and judges by the state file that the
# player keeps, never by how long something took. Ends with 77 where xvfb-run or xdotool is missing.
set -euo pipefail

for program in xvfb-run xdotool; do
    if ! command -v "$program" >/dev/null; then
        echo "skipped: $program is not installed"
        exit 77
    fi
done
if [[ "${KIV_GUI_DISPLAY:-}" != yes ]]; then
    KIV_GUI_DISPLAY=yes exec xvfb-run -a -s "-screen 0 1400x900x24" "$0" "$@"
fi

player="$(realpath "$1")"
motion="$(realpath "$2")"
folder="$(mktemp -d)"
cd "$folder"
"$player" --quiet --state-file state.json "$motion" 2>errors.txt &
running=$!
trap 'kill "$running" 2>/dev/null || true; rm -rf "$folder"' EXIT

fail() {
    echo "FAILED: $1"
    cat errors.txt state.json 2>/dev/null || true
    exit 1
}

# The state is written with one value a line; lists of numbers stand on the lines after their name.
value() { sed -n "s/^ \"$1\": \(.*[^,]\),\{0,1\}\$/\1/p" state.json 2>/dev/null | head -n 1; }
numbers() { # NAME COUNT: of the first list of that name
    grep -m 1 -A "$2" "\"$1\": \[" state.json | tail -n "$2" | tr -d ' ,'
}

until_true() { # WHAT COMMAND...: a generous limit that only a failure reaches
    local what="$1"
    shift
    for ((i = 0; i < 600; ++i)); do
        if "$@"; then
            echo "ok: $what"
            return
        fi
        kill -0 "$running" 2>/dev/null || [[ -n "${quitting:-}" ]] || fail "$what: the player has ended"
        sleep 0.05
    done
    fail "$what"
}
is() { [[ "$(value "$1")" == "$2" ]]; }
has() { grep -q "$1" state.json; }
loaded() { is loading false && has '"actorId": "0"' && has '"timeline"'; }
near() { awk -v a="$1" -v b="$2" -v by="$3" 'BEGIN { d = a - b; exit !(d < by && d > -by) }'; }
frame_is_near() { near "$(value frame)" "$1" 4; }
gone() { ! kill -0 "$running" 2>/dev/null; }

until_true "a figure is shown" loaded
window="$(xdotool search --onlyvisible --name '^kivplayer$' | head -n 1)"
[[ -n "$window" ]] || fail "there is a window of that name"
point() { xdotool mousemove --window "$window" "${1%.*}" "${2%.*}"; }
middle() { # NAME: of a control
    mapfile -t box < <(numbers "$1" 4)
    point "$(awk -v a="${box[0]}" -v b="${box[2]}" 'BEGIN { print a + b / 2 }')" \
        "$(awk -v a="${box[1]}" -v b="${box[3]}" 'BEGIN { print a + b / 2 }')"
}

until_true "it plays" is playing true
middle grid # where no key goes astray
xdotool key space
until_true "Space pauses" is playing false
before="$(value frame)"
xdotool key period
until_true "a full stop steps one frame on" is frame "$((before + 1))"
xdotool key ctrl+Home
until_true "Ctrl+Home goes to the first frame" is frame 0
frames="$(value frames)"
xdotool key ctrl+End
until_true "Ctrl+End goes to the last frame" is frame "$((frames - 1))"

mapfile -t line < <(numbers timeline 4)
along() { awk -v a="${line[0]}" -v w="${line[2]}" -v s="$1" 'BEGIN { print a + 7 + (w - 14) * s }'; }
height="$(awk -v a="${line[1]}" 'BEGIN { print a + 11 }')"
point "$(along 0.25)" "$height"
xdotool mousedown 1
until_true "the time line is pressed" frame_is_near "$((frames / 4))"
point "$(along 0.6)" "$height"
until_true "the time line is dragged" frame_is_near "$((frames * 6 / 10))"
xdotool mouseup 1

middle grid
xdotool click 1
until_true "a click takes the grid away" is grid false
xdotool key g
until_true "g brings it back" is grid true
xdotool key m
until_true "m shows the centre of mass" is centreOfMass true
xdotool key c
until_true "c shows contacts" is contacts true
xdotool key bracketright
until_true "a bracket plays faster" is speed 2.0
xdotool key k
until_true "k follows the actor" is followed 0
xdotool key k
until_true "k lets it go" is followed null
xdotool key h
until_true "h shows the keys" is help true
xdotool key h
until_true "h takes them away" is help false

middle name0
xdotool click 1
until_true "the name is edited in place" is typing true
xdotool type "Anna"
xdotool key Return
until_true "Enter renames" has '"name": "Anna"'
until_true "the keyboard is given back" is typing false

if has '"seenAt"'; then
    xdotool key p
    until_true "p shows the draggers" has '"dragger": true'
fi

xdotool key F12
until_true "F12 writes a picture" test -s kivplayer-0001.png

quitting=yes
xdotool key Escape
until_true "Escape quits" gone
wait "$running" || fail "it ends well"
is running false || fail "the last state says so"
