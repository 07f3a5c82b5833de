#!/usr/bin/env bash
# checkreach.sh ROOT PAGE...: a reader who starts with README.md and follows links comes to every page.
set -euo pipefail
cd "$1"
shift

declare -A reached=([README.md]=yes)
waiting=(README.md)
while ((${#waiting[@]} > 0)); do
    page="${waiting[0]}"
    waiting=("${waiting[@]:1}")
    while read -r link; do
        next="$(realpath -m --relative-to=. "$(dirname "$page")/$link")"
        if [[ -f "$next" && -z "${reached[$next]:-}" ]]; then
            reached[$next]=yes
            waiting+=("$next")
        fi
    done < <(grep -o '](<\{0,1\}[^)>#:]*\.md' "$page" | sed 's/^](<\{0,1\}//')
done

lost=0
for page in "$@"; do
    if [[ -z "${reached[$page]:-}" ]]; then
        echo "$page: no link leads to it"
        lost=1
    fi
done
echo "$# pages"
[[ "$lost" -eq 0 ]]
