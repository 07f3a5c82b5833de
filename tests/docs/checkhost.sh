#!/usr/bin/env bash
# checkhost.sh MODULE PAGE: the page names every operation of the host that the module calls.
set -euo pipefail
called="$(nm -DC --undefined-only "$1" | grep -oE '\bKiv[A-Z][A-Za-z]+::[A-Za-z_]+(::~?[A-Za-z]+)?' |
    grep -v '^KivCharacterization' | sort -u)"
missing=0
while read -r name; do
    if ! grep -qE "\b${name##*[:~]}\b" "$2"; then
        echo "missing: $name"
        missing=1
    fi
done <<<"$called"
echo "$(wc -l <<<"$called") names"
[[ "$missing" -eq 0 ]]
