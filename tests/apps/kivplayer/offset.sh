#!/usr/bin/env bash
# offset.sh PLAYER ROOT: an actor that starts later gives the pictures and the numbers that it gives without, so much
# later on the clock.
set -euo pipefail

player="$(realpath "$1")"
motions="$(realpath "$2")/Data/BVH"
folder="$(mktemp -d)"
trap 'rm -rf "$folder"' EXIT
cd "$folder"

shown() { # NAME ARGUMENT...
    "$player" --quiet --resolution 160,120 --samples 1 --show com,contacts --output "$@"
}
same() { # WHAT FILE FILE
    cmp "$2" "$3" || { echo "FAILED: $1" && exit 1; }
    echo "ok: $1"
}
differ() { # WHAT FILE FILE
    cmp -s "$2" "$3" && echo "FAILED: $1" && exit 1
    echo "ok: $1"
}
walk="$motions/walk.bvh"

shown plain.png --time 2 "$walk"
shown first.png --time 0 "$walk"
shown later.png --time 3.5 --offset 0=1.5 "$walk"
shown earlier.png --time 0.5 --offset 0=-1.5 "$walk"
shown waiting.png --time 1 --offset 0=1.5 "$walk"
shown notwaiting.png --time 1 "$walk"
same "a picture of an actor that starts later" plain.png later.png
same "a picture of an actor that started earlier" plain.png earlier.png
same "before it starts it stands in its first frame" first.png waiting.png
differ "where it would have gone on without" first.png notwaiting.png

shown frame.png --frame 60 "$walk"
shown laterframe.png --frame 60 --offset 0=1.5 "$walk"
same "a frame of the file is that frame whenever it starts" frame.png laterframe.png

pass=("$motions/pass_left.bvh" "$motions/pass_right.bvh")
shown both.png --time 2 "${pass[@]}"
shown one.png --time 2 --offset 1=0.8 "${pass[@]}"
differ "one of two starts later" both.png one.png
shown alsoother.png --time 2.8 --offset 1=0.8 --offset 0=0.8 "${pass[@]}"
same "both start later" both.png alsoother.png

shown 'plain-{frame}.png' --range 1,1.5 --fps 4 "$walk"
shown 'later-{frame}.png' --range 2.5,3 --fps 4 --offset 0=1.5 "$walk"
for i in 0 1 2; do
    same "picture $i of a sequence" "plain-$i.png" "later-$i.png"
done
shown 'all-{frame}.png' --fps 1 "$walk"
shown 'longer-{frame}.png' --fps 1 --offset 0=2 "$walk"
[[ "$(find . -name 'longer-*' | wc -l)" == "$(($(find . -name 'all-*' | wc -l) + 2))" ]] ||
    { echo "FAILED: the time line is longer" && exit 1; }
echo "ok: the time line is longer"

# Of two actors the one starts 1.5 s later: its rows have that in their times, and nothing else has changed.
"$player" --quiet --export plain.csv "${pass[@]}"
"$player" --quiet --export later.csv --offset 1=1.5 "${pass[@]}"
awk -F, -v OFS=, 'NR > 1 && $1 == 1 { $4 = sprintf("%.9g", $4 + 1.5) } NR > 1 && $1 == 0 { $4 = sprintf("%.9g", $4) } 1' \
    plain.csv >expected.csv
awk -F, -v OFS=, 'NR > 1 { $4 = sprintf("%.9g", $4) } 1' later.csv >found.csv
same "a table" expected.csv found.csv
differ "whose times are others" plain.csv later.csv

"$player" --quiet --export plain.osgt --time 1 "$walk"
"$player" --quiet --export later.osgt --time 2.5 --offset 0=1.5 "$walk"
same "a dressed actor" plain.osgt later.osgt

"$player" --offset 0=-9 --frame 3 --resolution 64,48 --samples 1 --output none.png "$walk" 2>said
grep -q "warning: frame 3 lies .* s before the clock begins" said || { cat said && echo "FAILED: it says so" && exit 1; }
echo "ok: a frame that the clock never reaches is told of"
