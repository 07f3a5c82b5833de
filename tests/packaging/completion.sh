#!/usr/bin/env bash
# completion.sh PLAYER COMPLETION: asks the completion as bash would.
set -euo pipefail
# shellcheck source=/dev/null
source "$2"
compopt() { :; } # it works inside a real completion only

player="$1"
complete_words() { # WORD...: what the last word may become, one a line
    COMP_WORDS=("$player" "$@")
    COMP_CWORD=$#
    COMPREPLY=()
    _kivplayer
    printf '%s\n' "${COMPREPLY[@]}"
}
expect() { # WHAT FOUND WANTED
    if [[ "$2" != "$3" ]]; then
        printf 'FAILED: %s\nfound:\n%s\nwanted:\n%s\n' "$1" "$2" "$3"
        exit 1
    fi
    echo "ok: $1"
}

folder="$(mktemp -d)"
trap 'rm -rf "$folder"' EXIT
cd "$folder"
mkdir takes
touch dance.bvh WALK.BVH notes.txt
help="$("$player" --help)"

expect "motions and folders are offered, other files are not" \
    "$(complete_words "" | sort)" "$(printf '%s\n' dance.bvh takes WALK.BVH | sort)"
expect "every option of the help is offered" \
    "$(complete_words -- | sort)" "$(grep -o -- '^  -[^ ]*' <<<"$help" | grep -o -- '--[a-z-]*' | sort)"
expect "an option is completed" "$(complete_words --conta)" "--contact-sheet"
expect "a file option takes any file" "$(complete_words --report no)" "notes.txt"
expect "so does its form with an equals sign" "$(complete_words --report = no)" "notes.txt"
expect "a folder option takes folders" "$(complete_words --contact-sheet "")" "takes"
expect "a number is left to the user" "$(complete_words --time "")" ""
for option in --show --camera --unit --up; do
    # The words that the help lists stand before its last "or".
    listed="$(sed -n "s/^  $option [A-Z]* [. ]*//p" <<<"$help" | sed 's/^[^:]*: //; s/ or / /g; s/,/ /g' |
        grep -o '\b[a-z][a-z-]*\b' | grep -vxE 'in|degrees|centimetres|per|unit|A|the' | sort)"
    expect "values of $option" "$(complete_words "$option" "" | sort)" "$listed"
done
