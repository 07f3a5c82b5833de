#!/usr/bin/env bash
# completion.sh PLAYER SHELL COMPLETION: asks the completion as that shell would: bash, zsh or fish. 77: it is not there.
set -euo pipefail
player="$(realpath "$1")"
shell="$2"
completion="$(realpath "$3")"
here="$(dirname "$(realpath "$0")")"
if ! command -v "$shell" >/dev/null; then
    echo "skipped: $shell is not installed"
    exit 77
fi
PATH="$(dirname "$player"):$PATH"
folder="$(mktemp -d)"
trap 'rm -rf "$folder"' EXIT
export HOME="$folder/home" TERM=dumb
mkdir -p "$HOME" "$folder/work/takes"
cd "$folder/work"
touch dance.bvh WALK.BVH notes.txt

# complete_words WORD...: what the last word may become, one a line. "--option" "=" "value" is one word but to bash.
case "$shell" in
    bash)
        # shellcheck source=/dev/null
        source "$completion"
        compopt() { :; } # it works inside a real completion only
        complete_words() {
            COMP_WORDS=(kivplayer "$@")
            COMP_CWORD=$#
            COMPREPLY=()
            _kivplayer
            printf '%s\n' "${COMPREPLY[@]}"
        }
        ;;
    zsh) complete_words() { zsh -f "$here/completion.zsh" "$completion" "$(line_of "$@")"; } ;;
    fish)
        complete_words() {
            fish --no-config -c 'source $argv[1]; complete -C "$argv[2]"' "$completion" "$(line_of "$@")" |
                cut -f 1 | sed 's/^--[a-z-]*=//; s/\/$//'
        }
        ;;
esac
line_of() { # WORD...
    local line="kivplayer $*"
    echo "${line// = /=}"
}
expect() { # WHAT FOUND WANTED
    if [[ "$2" != "$3" ]]; then
        printf 'FAILED: %s\nfound:\n%s\nwanted:\n%s\n' "$1" "$2" "$3"
        exit 1
    fi
    echo "ok: $1"
}
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
        grep -oE -- '-?\b[a-z][a-z-]*\b' | grep -vxE 'in|degrees|centimetres|per|unit|A|the' | sort)"
    expect "values of $option" "$(complete_words "$option" "" | sort)" "$listed"
done
