#!/usr/bin/env bash
# interrupted.sh PLAYER ROOT: a player that is interrupted, told to end or hung up on while it writes a video or pictures
# leaves no unfinished file and no child, keeps the older file, and ends with 128 + the signal's number.
set -uo pipefail
set -m # so that children of this script do not ignore SIGINT

player="$(realpath "$1")"
motion="$(realpath "$2")/Data/BVH/walk.bvh"
folder="$(mktemp -d)"
trap 'rm -rf "$folder"' EXIT
cd "$folder"
failures=0

mkdir bin
cat >bin/ffmpeg <<'EOF'
#!/bin/sh
echo $$ >"$CHILD_FILE"
exec cat >/dev/null
EOF
chmod +x bin/ffmpeg
export CHILD_FILE="$folder/child" PATH="$folder/bin:$PATH"

fail() {
    echo "FAILED: $*"
    failures=$((failures + 1))
}
waitFor() { # FILE
    for ((i = 0; i < 600; ++i)); do
        [[ -s "$1" ]] && return
        sleep 0.05
    done
    fail "$1 never came"
}

for signal in INT TERM HUP; do
    rm -f child
    echo older >walk.mp4
    "$player" --quiet --resolution 64,48 --samples 1 --fps 1000 --output walk.mp4 "$motion" &
    process=$!
    waitFor child
    kill -"$signal" "$process"
    code=0
    wait "$process" || code=$?
    [[ "$code" -eq $((128 + $(kill -l "$signal"))) ]] || fail "$signal: ended with $code"
    [[ ! -e walk.mp4.part ]] || fail "$signal: left walk.mp4.part"
    [[ "$(cat walk.mp4)" == older ]] || fail "$signal: the older video is gone"
    for ((i = 0; i < 100; ++i)); do
        kill -0 "$(cat child)" 2>/dev/null || break
        sleep 0.05
    done
    ! kill -0 "$(cat child)" 2>/dev/null || fail "$signal: ffmpeg goes on"
    echo "ok: $signal"
done

# Who starts it with nohup wants it to go on.
rm -f child walk.mp4
(trap '' HUP && exec "$player" --quiet --resolution 64,48 --samples 1 --range 0,0.5 --output {frame}.png "$motion") &
process=$!
waitFor 0.png
kill -HUP "$process" 2>/dev/null
wait "$process" || fail "an ignored hang-up ended it"
exit "$((failures > 0))"
