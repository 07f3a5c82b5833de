#!/usr/bin/env bash
# checklinks.sh ROOT PAGE...: every relative link of the pages leads to a file, and every "#place" to a heading.
set -euo pipefail
cd "$1"
shift

# Without blocks of code and code in a line: brackets there are no links.
prose() { awk '/^```/ { code = !code; next } !code { gsub(/`[^`]*`/, ""); print }' "$1"; }
links() { prose "$1" | grep -o '\](<\{0,1\}[^)>]*' | sed 's/^](<\{0,1\}//'; }
places() { # the names that headings are reached by
    awk '/^```/ { code = !code } !code && /^#+ /' "$1" | sed 's/^#* //; s/`//g; s/\[\([^]]*\)\]([^)]*)/\1/g' |
        tr '[:upper:]' '[:lower:]' | sed "s/[^a-z0-9 _-]//g; s/ /-/g"
}

dead=0
all=0
for page in "$@"; do
    while read -r link; do
        all=$((all + 1))
        case "$link" in *://* | mailto:*) continue ;; esac
        file="${link%%#*}"
        target="$page"
        if [[ -n "$file" ]]; then
            target="$(dirname "$page")/$file"
        fi
        place=""
        if [[ "$link" == *"#"* ]]; then
            place="${link#*#}"
        fi
        if [[ ! -e "$target" ]] || { [[ -n "$place" ]] && ! places "$target" | grep -qxF -- "$place"; }; then
            echo "$page: $link"
            dead=$((dead + 1))
        fi
    done < <(links "$page" || true)
done
echo "$all links, $dead dead links"
[[ "$dead" -eq 0 ]]
