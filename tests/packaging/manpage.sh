#!/usr/bin/env bash
# manpage.sh PLAYER PAGE: every option and every key that the player tells of stands in the page, and man finds no fault.
set -euo pipefail

words="$(sed 's/\\-/-/g; s/\\&//g' "$2")"
missing=0
while read -r word; do
    if ! grep -qxF -- "$word" <<<"$words"; then
        echo "missing: $word"
        missing=1
    fi
done < <("$1" --help | sed -n 's/^  \(-[^ ]*\( [^ ]\{1,\}\)*\).*/.B \1/p'
    "$1" --help-keys | sed -n 's/^\([^ ]*\( [^ ]\{1,\}\)*\)  .*/.B \1/p')
[[ "$missing" -eq 0 ]]
grep -c '^\.TP' "$2"

if command -v man >/dev/null; then
    faults="$(MANROFFSEQ='' MANWIDTH=80 man --warnings -E UTF-8 -l -Tutf8 -Z "$2" 2>&1 >/dev/null)"
    echo "$faults"
    [[ -z "$faults" ]]
fi
