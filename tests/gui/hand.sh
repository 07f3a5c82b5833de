# hand.sh: sourced by the tests of the window. A display of their own, a hand at mouse and keyboard, and an eye on the
# state file that the player keeps: they judge by what it says, never by how long something took. Ends with 77 where a
# program is missing.

need() { # PROGRAM...
    local program
    for program in "$@"; do
        if ! command -v "$program" >/dev/null; then
            echo "skipped: $program is not installed"
            exit 77
        fi
    done
}

on_a_display() { # "$@" of the script: begins it again under a display of its own
    need xvfb-run xdotool jq
    if [[ "${KIV_GUI_DISPLAY:-}" != yes ]]; then
        KIV_GUI_DISPLAY=yes exec xvfb-run -a -s "-screen 0 1400x900x24 -noreset" "$0" "$@"
    fi
}

in_a_folder() {
    folder="$(mktemp -d)"
    cd "$folder" || exit 1
    running=
    trap '[[ -n "$running" ]] && kill "$running" 2>/dev/null; rm -rf "$folder"' EXIT
}

fail() {
    echo "FAILED: $1"
    cat errors.txt 2>/dev/null
    jq -c 'del(.places)' state.json 2>/dev/null
    exit 1
}

holds() { jq -e "$1" state.json >/dev/null 2>&1; } # FILTER: is it true of the state
tell() { jq -r "$1" state.json; }                  # FILTER: what the state says

until_true() { # WHAT COMMAND...: a generous limit that only a failure reaches
    local what="$1" end="$((SECONDS + 45))"
    shift
    while ((SECONDS < end)); do
        if "$@"; then
            echo "ok: $what"
            return
        fi
        kill -0 "$running" 2>/dev/null || [[ -n "${quitting:-}" ]] || fail "$what: the player has ended"
        sleep 0.05
    done
    fail "$what"
}
until_holds() { until_true "$1" holds "$2"; } # WHAT FILTER
after_frames() {                              # COUNT: lets the window draw so many more
    local from
    from="$(tell .frameTimes.frames)"
    until_true "$1 frames pass" holds ".frameTimes.frames >= $from + $1" >/dev/null
}

play() { # PLAYER ARGUMENT...: starts it and waits for its figures
    "$@" --quiet --state-file state.json 2>errors.txt &
    running=$!
    until_holds "it has started" '.loading == false and (.places | has("timeline"))'
    window="$(xdotool search --onlyvisible --name '^kivplayer$' | head -n 1)"
    [[ -n "$window" ]] || fail "there is a window of that name"
}

key() { xdotool key "$@"; }
point() { xdotool mousemove --window "$window" "${1%.*}" "${2%.*}"; } # X Y
middle() { # NAME: of a control
    local x y
    read -r x y < <(tell ".places[\"$1\"] | \"\(.[0] + .[2] / 2) \(.[1] + .[3] / 2)\"")
    point "$x" "$y"
}
click() { # NAME: of a control
    middle "$1"
    xdotool click 1
}

quit() {
    quitting=yes
    key Escape
    until_true "Escape quits" eval '! kill -0 "$running" 2>/dev/null'
    wait "$running" || fail "it ends well"
    running=
    holds '.running == false' || fail "the last state says so"
}
