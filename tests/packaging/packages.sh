#!/usr/bin/env bash
# packages.sh SOURCE BUILD: makes the Debian packages of a finished build, has lintian look at them, unpacks them into a
# folder and runs the player from there. Ends with 77 where a program for it is missing.
set -euo pipefail
for program in dh lintian fakeroot; do
    if ! command -v "$program" >/dev/null; then
        echo "skipped: $program is not installed (packaging/package-packages.txt)"
        exit 77
    fi
done

folder="$(mktemp -d)"
trap 'rm -rf "$folder"' EXIT
DEB_BUILD_OPTIONS=noautodbgsym "$1/packaging/make-packages.sh" --build "$2" "$folder/packages"

root="$folder/root"
for package in "$folder"/packages/*.deb; do
    dpkg-deb -x "$package" "$root"
done
# What another package brings.
mkdir -p "$root/usr/share/fonts"
ln -s /usr/share/fonts/truetype "$root/usr/share/fonts/truetype"

libraries=("$root"/usr/lib/*/)
export LD_LIBRARY_PATH="${libraries[0]}"
if ldd "$root/usr/bin/kivplayer" | grep -F libKiv | grep -vF "$root"; then
    echo "FAILED: the player takes a library from elsewhere"
    exit 1
fi
"$root/usr/bin/kivplayer" --quiet --frame 0 --resolution 320,240 --samples 3 \
    --reference "$1/tests/render/reference/walk-first.png" "$root/usr/share/kivcharacterization/Data/BVH/walk.bvh"
echo "ok: the unpacked player shows the usual picture"
