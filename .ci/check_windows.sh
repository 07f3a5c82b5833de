#!/usr/bin/env bash
# Compiles the module's sources and every header of include/ for 64-bit Windows, without building anything. Needs
# mingw-w64 and OpenSceneGraph's headers; without them the check is skipped: exit status 77.
#   KIV_STANDARDS  language levels to check, "c++17" by default
#   KIV_MINGW      the compiler
#   KIV_OSG_INCLUDE  the headers of another OpenSceneGraph, 3.4.0 for one, with what its build generates
#                  (osg/Config, osg/GL, osg/Version, OpenThreads/Config) put in place
set -euo pipefail
cd "$(dirname "$(realpath "$0")")/.."

compiler=${KIV_MINGW:-x86_64-w64-mingw32-g++-posix}
if ! command -v "$compiler" > /dev/null; then
    echo "skipped: $compiler is not installed (package g++-mingw-w64-x86-64)"
    exit 77
fi
include_dir=${KIV_OSG_INCLUDE:-$(pkg-config --variable=includedir openscenegraph 2> /dev/null || echo /usr/include)}
[ -d "$include_dir/osg" ] || include_dir=/usr/include
if [ ! -d "$include_dir/osg" ]; then
    echo "skipped: OpenSceneGraph's headers are not installed (package libopenscenegraph-dev)"
    exit 77
fi

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir "$work/osg"
# Only these folders: the rest of the system's headers belong to another platform. Debian keeps one generated folder
# of configuration headers apart.
for folder in OpenThreads osg osgAnimation osgDB osgGA osgManipulator osgText osgUtil osgViewer; do
    mkdir "$work/osg/$folder"
    for place in "$include_dir" "$include_dir/$(gcc -print-multiarch 2> /dev/null)"; do
        if [ -d "$place/$folder" ]; then
            ln -sf "$place/$folder/"* "$work/osg/$folder/"
        fi
    done
done

flags=(-fsyntax-only -Wall -Wextra -Wconversion -Werror -include windows.h -include GL/gl.h -include GL/glext.h
       -isystem "$work/osg" -I . -I include)
# That each header stands alone is the interface tests' matter; here they go together, for time's sake.
(cd include && find . -name '*.h' | sort | sed 's|^\./\(.*\)$|#include "\1"|') > "$work/allheaders.cpp"

failed=0
checked=0
check() {
    checked=$((checked + 1))
    if ! "$compiler" "-std=$1" "${flags[@]}" "${@:3}" "$2" 2> "$work/messages"; then
        failed=$((failed + 1))
        echo "failed ($1): $2"
        head -n "${KIV_MESSAGE_LINES:-20}" "$work/messages"
    fi
}
for standard in ${KIV_STANDARDS:-c++17}; do
    check "$standard" "$work/allheaders.cpp"
    for source in $(git ls-files 'KivCharacterization/*.cpp'); do
        check "$standard" "$source" -DKivCharacterization_EXPORTS
    done
done
echo "$checked sources compiled for Windows, $failed failed"
[ "$failed" -eq 0 ]
