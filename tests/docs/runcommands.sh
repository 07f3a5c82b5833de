#!/usr/bin/env bash
# runcommands.sh SOURCE BUILD PAGE: runs the commands of a page's blocks
#     ```sh                    one after another, in one shell that ends at the first failure
#     ```sh needs PROGRAM...   the same, left out where a program is not installed
#     ```TYPE file=NAME        no commands: the content of a file that later commands use
# in a folder that looks like a fresh checkout which has been built, with the sample motions beside it, without a
# display, and with kivplayer in the path.
set -euo pipefail
source="$1"
build="$2"
page="$source/$3"

folder="$(mktemp -d)"
trap 'rm -rf "$folder"' EXIT
cd "$folder"
for entry in "$source"/*; do
    case "$(basename "$entry")" in build | build-* | out) ;; *) ln -s "$entry" . ;; esac
done
mkdir build
for preset in dev release; do
    ln -s "$build" "build/$preset"
done
cp "$build"/root/Data/BVH/*.bvh .
unset DISPLAY WAYLAND_DISPLAY
export PATH="$build/bin:$PATH"

script="$(mktemp -p "$folder" .commands.XXXXXX)"
awk '
    /^```/ && inside { if (inside == "file") print "END-OF-FILE"; else if (inside == "needs") print "fi"; inside = ""; next }
    /^```sh$/ { inside = "sh"; next }
    /^```sh needs / {
        inside = "needs"
        print "if command -v " substr($0, 13) " | awk \"END { exit NR != " NF - 2 " }\"; then"
        next
    }
    /^```.* file=/ { inside = "file"; sub(/.* file=/, ""); print "cat >\"" $0 "\" <<\"END-OF-FILE\""; next }
    /^```/ { inside = "other"; next }
    inside && inside != "other" { print }
' "$page" >"$script"
grep -q '[^ ]' "$script"
bash -euo pipefail -x "$script"
