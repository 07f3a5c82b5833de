#!/usr/bin/env bash
# make-packages.sh [--build FOLDER] [OUTPUT]: makes the Debian packages into OUTPUT, by default build/packages, and has
# lintian look at them. It installs what is missing and builds with the system's flags; with --build it packages a
# finished build that was configured with the prefix /usr, and installs nothing.
set -euo pipefail

built=""
if [[ "${1:-}" == --build ]]; then
    built="$(realpath "${2:?--build takes a folder}")"
    shift 2
fi
output="$(realpath -m "${1:-$(dirname "$(realpath "$0")")/../build/packages}")"
cd "$(dirname "$(realpath "$0")")/.."

complain() {
    echo "make-packages.sh: $1" >&2
    exit 1
}

version="$(sed -n 's/^project(KivCharacterization VERSION \([0-9.]*\) .*/\1/p' CMakeLists.txt)"
[[ "$(dpkg-parsechangelog --file packaging/debian/changelog --show-field Version)" == "$version" ]] ||
    complain "packaging/debian/changelog is not about version $version"
if [[ -n "$built" ]]; then
    grep -q '^CMAKE_INSTALL_PREFIX:PATH=/usr$' "$built/CMakeCache.txt" ||
        complain "$built was not configured with the prefix /usr; that of the preset \"dev\" is"
    export KIV_BUILT="$built"
else
    packaging/install-packages.sh packaging/build-packages.txt packaging/package-packages.txt
fi

work="$(mktemp -d)"
trap 'rm -rf "$work"' EXIT
source="$work/kivcharacterization-$version"
mkdir -p "$source" "$output"
if [[ -z "$built" ]]; then
    tar --exclude=./build --exclude='./build-*' --exclude=./out --exclude=./.git -cf - . | tar -xf - -C "$source"
fi
cp -r packaging/debian "$source/debian"
depends="$(sed 's/#.*//' packaging/build-packages.txt | awk 'NF && $1 != "build-essential" { printf "%s, ", $1 }')"
sed "s/@BUILD_DEPENDS@/${depends}debhelper-compat (= 13)/" packaging/debian/control.in >"$source/debian/control"
rm "$source/debian/control.in"
mkdir "$source/debian/source"
echo "3.0 (native)" >"$source/debian/source/format"

if ! (cd "$source" && dpkg-buildpackage --build=binary --no-sign >"$work/log.txt" 2>&1); then
    tail -n 40 "$work/log.txt" >&2
    complain "the packages could not be built"
fi
rm -f "$output"/*.deb "$output"/*.changes
cp "$work"/*.deb "$output"
(cd "$work" && lintian --fail-on error,warning ./*.changes)
ls "$output"
