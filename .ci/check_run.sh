#!/usr/bin/env bash
# Does what README.md and CONTRIBUTING.md tell a newcomer to do first, without a display, in a copy of the tracked files
# that is built on its own: build/newcomer. The copy stays, so that a second time builds only what has changed. What is
# left out is ./test.sh, which .ci/run begins with.
set -euo pipefail
cd "$(dirname "$(realpath "$0")")/.."
unset DISPLAY WAYLAND_DISPLAY

tree="$PWD/build/newcomer/tree"
mkdir -p "$tree"
find "$tree" -mindepth 1 -maxdepth 1 ! -name build -exec rm -rf {} +
git ls-files -z | tar --null -T - -c | tar -x -C "$tree"
home="$(mktemp -d)"
trap 'rm -rf "$home"' EXIT
cd "$home"

ends() { # CODE COMMAND...: and leaves what it said in said.txt and errors.txt
    local wanted="$1" code=0
    shift
    "$@" >said.txt 2>errors.txt || code=$?
    if [[ "$code" -ne "$wanted" ]]; then
        tail -n 30 said.txt errors.txt
        echo "FAILED: $* ended with $code, expected $wanted"
        exit 1
    fi
    echo "ok: $* ends with $code"
}
says() { # FILE TEXT
    grep -qF -- "$2" "$1" || { cat "$1" && echo "FAILED: expected \"$2\" in $1" && exit 1; }
}
pictured() { # NAME...: a picture of each is there, in the usual size, and was named
    local name
    for name in "$@"; do
        says said.txt "out/$name.png"
        # The size stands behind the signature and the length and name of the first part.
        [[ "$(od -An -tx1 -N24 "$tree/out/$name.png" | tr -d ' \n')" == \
            89504e470d0a1a0a0000000d4948445200000500000002d0 ]] ||
            { echo "FAILED: out/$name.png is no picture of 1280 x 720" && exit 1; }
    done
    rm -r "$tree/out"
    echo "ok: it wrote $*"
}

ends 2 "$tree/run.sh" nobodys.bvh
says errors.txt "run.sh: nobodys.bvh: there is no such file"
[[ ! -s said.txt ]] || { echo "FAILED: it began to build" && exit 1; }

ends 0 "$tree/run.sh"
pictured walk wave pass juggle

# The README's own words, with a file of that name.
cp "$tree/build/release/root/Data/BVH/walk.bvh" their.bvh
command="$(sed -n 's/^\$ \(\.\/run\.sh [^#]*[^# ]\) *#.*/\1/p' "$tree/README.md")"
[[ "$command" == "./run.sh their.bvh" ]] || { echo "FAILED: the README says \"$command\"" && exit 1; }
ends 0 "$tree/run.sh" their.bvh
pictured their

mkdir "their motions"
mv their.bvh "their motions/a walk.bvh"
head -n 136 "their motions/a walk.bvh" >broken.bvh
ends 1 "$tree/run.sh" broken.bvh "their motions/a walk.bvh"
says errors.txt "broken.bvh:137:1:"
! grep -F "out/broken.png" said.txt || { echo "FAILED: it names a picture that is not there" && exit 1; }
pictured "a walk"

mkdir "other motions"
cp "$tree/build/release/root/Data/BVH/wave.bvh" "other motions/a walk.bvh"
ends 0 "$tree/run.sh" "their motions/a walk.bvh" "other motions/a walk.bvh"
! cmp -s "$tree/out/a walk.png" "$tree/out/a walk-2.png" || { echo "FAILED: one of them is pictured twice" && exit 1; }
pictured "a walk" "a walk-2"

cd "$tree"
while read -r command; do
    ends 0 bash -c "$command"
done < <(sed -n '/^```console/,/^```$/ s/^\$ //p' CONTRIBUTING.md)
[[ -n "${command+read}" ]] && grep -q "100% tests passed" said.txt ||
    { echo "FAILED: the last of them runs tests" && exit 1; }
