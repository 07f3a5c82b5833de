# makemanpage.awk: the manual page, from a template with lines @OPTIONS@ and @KEYS@.
#   awk -v version=V -v help=FILE -v keys=FILE -f makemanpage.awk kivplayer.1.in
# help and keys hold what the program prints for --help and --help-keys.

function roff(text) {
    gsub(/\\/, "\\e", text)
    gsub(/-/, "\\-", text)
    return text ~ /^[.']/ ? "\\&" text : text
}

function item(name, text) {
    print ".TP\n.B " roff(name)
    if (text != "")
        print roff(text)
}

# A line of the help is "Group:", "  --name VALUE   text", or, below a long name, the text alone.
function options(    line, gap) {
    while ((getline line < help) > 0) {
        if (line ~ /^[A-Z][A-Za-z ]*:$/)
            group = substr(line, 1, length(line) - 1)
        else if (line ~ /^  -/) {
            if (group != shown && group != "Options")
                print ".SS " group
            shown = group
            line = substr(line, 3)
            gap = match(line, /  +/)
            if (gap)
                item(substr(line, 1, gap - 1), substr(line, gap + RLENGTH))
            else
                item(line, "")
        } else if (shown != "" && line ~ /^   +[^ ]/) {
            sub(/^ +/, "", line)
            print roff(line)
        }
    }
}

function bindings(    line, gap) {
    while ((getline line < keys) > 0) {
        gap = match(line, /  +/)
        item(substr(line, 1, gap - 1), substr(line, gap + RLENGTH))
    }
}

/^@OPTIONS@$/ { options(); next }
/^@KEYS@$/ { bindings(); next }
{ sub(/@VERSION@/, version); print }
