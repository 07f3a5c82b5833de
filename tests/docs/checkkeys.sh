#!/usr/bin/env bash
# checkkeys.sh PLAYER PAGE: the page's table of keys is what the player says, line for line.
set -euo pipefail
told="$("$1" --help-keys | sed 's/^\([^ ]*\( [^ ]\{1,\}\)*\)  *\(.*\)/| `\1` | \3 |/')"
written="$(grep '^| `' "$2")"
diff -u --label "kivplayer --help-keys" --label "$2" <(echo "$told") <(echo "$written")
echo "$(wc -l <<<"$told") keys"
