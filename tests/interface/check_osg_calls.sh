#!/bin/sh
# check_osg_calls.sh LIBRARY LIST: everything that a library takes from OpenSceneGraph 3.6 must stand in a list, so that a
# new dependence is seen and tried with the oldest supported headers, those of 3.4.0 (.ci/check_windows.sh).
set -eu
missing=$(nm -DuC "$1" | grep -E 'osg|OpenThreads' | grep -v Kiv | sed 's/^ *[a-zA-Z] //' | LC_ALL=C sort -u |
    LC_ALL=C comm -23 - "$2")
if [ -n "$missing" ]; then
    echo "not in $2; add it there once the module compiles with the headers of OpenSceneGraph 3.4.0, too:"
    echo "$missing"
    exit 1
fi
echo "takes only what is listed"
