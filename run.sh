#!/usr/bin/env bash
# run.sh [MOTION.bvh...]: installs what is missing, builds, and shows the motions on the avatar; without an argument the
# shipped samples. With a display it opens the player's window; without one it writes a picture of each motion under
# out/ and prints its name: the motion's, with -2, -3 and so on where several share one.
set -euo pipefail

motions=()
for motion in "$@"; do
    if [[ ! -f "$motion" ]]; then
        echo "run.sh: $motion: there is no such file" >&2
        exit 2
    fi
    motions+=("$(realpath "$motion")")
done
cd "$(dirname "$(realpath "$0")")"

echo "== Packages"
packaging/install-packages.sh packaging/build-packages.txt
echo "== Build (build/release)"
cmake --preset release >/dev/null
cmake --build --preset release
player=build/release/bin/kivplayer
samples=build/release/root/Data/BVH

picture() { # NAME ARGUMENT...: one picture, named on stdout once it is there
    local file="out/$1.png"
    "$player" --quiet --output "$file" "${@:2}" && echo "$file"
}

if [[ -n "${DISPLAY:-}" ]]; then
    echo "== Player"
    if ((${#motions[@]} == 0)); then
        motions=("$samples"/pass_left.bvh "$samples"/pass_right.bvh)
    fi
    exec "$player" "${motions[@]}"
fi

echo "== Pictures (there is no display)"
mkdir -p out
failures=0
if ((${#motions[@]} == 0)); then
    picture walk "$samples/walk.bvh" --time 2 || failures=1
    picture wave "$samples/wave.bvh" --time 3 || failures=1
    picture pass --name Ann --name Bob --time 3.2 "$samples/pass_left.bvh" "$samples/pass_right.bvh" || failures=1
    picture juggle "$samples/juggle.bvh" --time 3 --show com,contacts || failures=1
else
    declare -A taken=()
    for motion in "${motions[@]}"; do
        stem="$(basename "$motion" .bvh)"
        name="$stem"
        for ((i = 2; ${taken[$name]:-0}; ++i)); do # told apart as on a contact sheet
            name="$stem-$i"
        done
        taken[$name]=1
        picture "$name" "$motion" || failures=1
    done
fi
exit "$failures"
