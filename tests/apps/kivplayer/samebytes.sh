#!/usr/bin/env bash
# samebytes.sh PLAYER MOTION...: everything that the player writes, written twice, in other places, at other times and
# under other settings of the shell, is the same bytes.
set -euo pipefail

player="$(realpath "$1")"
shift
folder="$(mktemp -d)"
trap 'rm -rf "$folder"' EXIT
videos=()
if command -v ffmpeg >/dev/null; then
    videos=(mp4 mkv webm gif)
else
    echo "without videos: ffmpeg is not installed"
fi

everything() { # FOLDER MOTION...
    mkdir -p "$1"
    cd "$1"
    shift
    local small=(--quiet --resolution 128,96 --samples 1)
    "$player" "${small[@]}" --time 1 --show com,contacts,skeleton,names --output picture.png --report report.json \
        --export table.csv --export scene.osgb --export scene.osgt "$@"
    "$player" "${small[@]}" --range 0,0.2 --output 'sequence-{frame:02}.png' "$@"
    for ending in "${videos[@]}"; do
        "$player" "${small[@]}" --range 0,0.4 --output "video.$ending" "$@"
    done
}

(everything "$folder/one" "$@")
export TZ=Asia/Tokyo LC_ALL=C.UTF-8 HOME="$folder" COLUMNS=40
(everything "$folder/another" "$@")
diff -r "$folder/one" "$folder/another"
count="$(find "$folder/one" -type f | wc -l)"
echo "$count files are the same"
[[ "$count" -ge $((12 + ${#videos[@]})) ]]
