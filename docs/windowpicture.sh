#!/usr/bin/env bash
# windowpicture.sh PLAYER ROOT PICTURE: a picture of the window in use, taken on a display of its own.
set -euo pipefail
if [[ "${KIV_OWN_DISPLAY:-}" != yes ]]; then
    for program in xvfb-run xdotool jq import; do
        command -v "$program" >/dev/null || { echo "windowpicture.sh: $program is not installed" >&2; exit 1; }
    done
    KIV_OWN_DISPLAY=yes exec xvfb-run -a -s "-screen 0 1400x900x24" "$0" "$@"
fi
player="$1"
motions="$2/Data/BVH"
picture="$3"
folder="$(mktemp -d)"
state="$folder/state.json"
"$player" --quiet --root "$2" --state-file "$state" --show com,contacts --frame 130 "$motions/juggle.bvh" &
running=$!
trap 'kill "$running" 2>/dev/null || true; rm -rf "$folder"' EXIT

wait_for() { # FILTER: until the state answers true
    local end="$((SECONDS + 120))"
    until jq -e "$1" "$state" >/dev/null 2>&1; do
        if ((SECONDS > end)) || ! kill -0 "$running"; then
            echo "windowpicture.sh: never came true: $1" >&2
            exit 1
        fi
        sleep 0.1
    done
}

wait_for '.loading == false'
window="$(xdotool search --onlyvisible --name '^kivplayer$' | head -n 1)"
xdotool mousemove --window "$window" 700 20 key space
wait_for '.playing == false'
xdotool key p
wait_for '.propList[0].dragger'
# Shadows may have been left out for the sake of the frame rate.
jq -e .shadows "$state" >/dev/null || xdotool key d
wait_for .shadows
frames="$(jq .frameTimes.frames "$state")"
wait_for ".frameTimes.frames > $frames + 5"
import -window "$window" -strip "$picture"
