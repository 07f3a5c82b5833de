#!/bin/sh
# iffound.sh PROGRAM ARGUMENT...: runs a program, or ends with 77 where it is not installed.
if ! command -v "$1" >/dev/null; then
    echo "skipped: $1 is not installed"
    exit 77
fi
exec "$@"
