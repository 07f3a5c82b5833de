#!/usr/bin/env bash
# exitcodes.sh PLAYER ROOT: what the player answers where its output cannot be written, from the command line.
set -uo pipefail

player="$(realpath "$1")"
motion="$(realpath "$2")/Data/BVH/walk.bvh"
folder="$(mktemp -d)"
trap 'rm -rf "$folder"' EXIT
cd "$folder"
failures=0

ends() { # CODE TEXT ARGUMENT...: and says the text in one line that begins as every error does
    local wanted="$1" text="$2" code=0
    shift 2
    PATH="${programs:-$PATH}" "$player" --quiet --resolution 64,48 --samples 1 "$@" "$motion" 2>said || code=$?
    if [[ "$code" -ne "$wanted" ]] || ! grep -q "^kivplayer: .*$text" said; then
        echo "FAILED: $* ended with $code, expected $wanted and \"$text\"; said: $(cat said)"
        failures=$((failures + 1))
    else
        echo "ok: $* ends with $code"
    fi
}

touch file
for name in file/a.png file/a.mp4 file/a.gif 'file/{frame}.png'; do
    ends 1 "Not a directory" --output "$name"
done
for name in file/a.csv file/a.osgb; do
    ends 1 "Not a directory" --export "$name"
done
ends 1 "Not a directory" --no-render --report file/a.json

for name in full.png full.json full.csv full.osgb full.mp4; do
    ln -s /dev/full "$name.part"
done
ends 1 "full.png: error: .*No space left" --output full.png
ends 1 "full.json: error: .*No space left" --no-render --report full.json
ends 1 "full.csv: error: .*No space left" --export full.csv
ends 1 "full.osgb: error: .*No space left" --export full.osgb
ends 1 "No space left" --no-render --report /dev/full
if command -v ffmpeg >/dev/null; then
    ends 1 "full.mp4: error: .*No space left" --range 0,0.2 --output full.mp4
fi
walk="$motion"
motion="$folder/chain.bvh"
printf '%s\n' HIERARCHY 'ROOT Base' '{' 'OFFSET 0 0 0' 'CHANNELS 3 Xrotation Yrotation Zrotation' 'End Site' '{' \
    'OFFSET 0 5 0' '}' '}' MOTION 'Frames: 1' 'Frame Time: 0.1' '0 0 0' >"$motion"
ends 1 "chain.bvh: warning: not recognised as a person" --output chain.png
ends 1 "chain.bvh: warning: not recognised as a person" --contact-sheet sheet --moments 1
if [[ ! -s chain.png || ! -s sheet/chain.png ]]; then
    echo "FAILED: what is no person has a picture"
    failures=$((failures + 1))
fi
if ! "$player" --quiet --resolution 64,48 --profile off --output asitis.png "$motion" 2>said || [[ -s said ]]; then
    echo "FAILED: with the profile off nobody need be a person: $(cat said)"
    failures=$((failures + 1))
fi
motion="$walk"
ends 2 "ends in .csv" --export a.xls
ends 2 "ends in .png, .mp4" --output a.avi
programs="$folder/nowhere"
ends 1 "there is no ffmpeg.*--output 'a/{frame:04}.png'" --output a.mp4
programs=

unfinished="$(find . -name '*.part')"
if [[ -n "$unfinished" ]]; then
    echo "FAILED: left behind: $unfinished"
    failures=$((failures + 1))
fi
exit "$((failures > 0))"
