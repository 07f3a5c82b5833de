#!/usr/bin/env bash
# pkgconfigconsumer.sh COMPILER CONSUMER LIBDIR FOLDER: builds and runs the consumer's program with pkg-config alone.
set -euo pipefail
mkdir -p "$4"
export PKG_CONFIG_PATH="$3/pkgconfig"
data="$(pkg-config --variable=datadir kivcharacterization)"
# shellcheck disable=SC2046 # they are words
"$1" -std=c++17 "$2/dressone.cpp" -o "$4/dressone" "-DDATA_DIR=\"$data\"" \
    $(pkg-config --cflags --libs kivcharacterization kivhost) "-Wl,-rpath,$3"
"$4/dressone"
