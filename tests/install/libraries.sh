#!/usr/bin/env bash
# libraries.sh LIBDIR MAJOR: every installed library is named by its major version, looks for others beside itself alone,
# and shows no symbol but its own.
set -euo pipefail
faults=0
libraries=0
for library in "$1"/libKiv*.so; do
    libraries=$((libraries + 1))
    name="$(basename "$library")"
    dynamic="$(readelf -d "$library")"
    if ! grep -qF "soname: [$name.$2]" <<<"$dynamic"; then
        echo "$name: its name is not $name.$2"
        faults=1
    fi
    if [[ "$(sed -n 's/.*runpath: \[\(.*\)\]/\1/p' <<<"$dynamic")" != "\$ORIGIN" ]]; then
        echo "$name: it looks for libraries elsewhere"
        faults=1
    fi
    # Weak symbols are templates and inline functions of the standard library and OpenSceneGraph; the linker adds three.
    if nm -DC --defined-only "$library" | awk '$2 ~ /^[TDBR]$/ && $3 !~ /^(__bss_start|_edata|_end)$/' |
        grep -vE ' ((vtable|typeinfo|typeinfo name|guard variable) for |(non-)?virtual thunk to )?Kiv'; then
        echo "$name: it shows these symbols"
        faults=1
    fi
done
echo "$libraries libraries"
[[ "$faults" -eq 0 && "$libraries" -eq 10 ]]
