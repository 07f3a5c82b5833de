#!/usr/bin/env bash
# install-packages.sh LIST...: installs what is missing of the Debian packages that the lists name. Says what it does,
# changes nothing when all of them are there. Works as root and, where sudo is there, as a user.
set -euo pipefail

missing=()
while read -r package; do
    if [[ "$(dpkg-query -W -f='${Status}' "$package" 2>/dev/null)" != "install ok installed" ]]; then
        missing+=("$package")
    fi
done < <(sed 's/#.*//' "$@" | awk 'NF { print $1 }')

if ((${#missing[@]} == 0)); then
    echo "All packages are installed."
    exit 0
fi
as_root=()
if ((EUID != 0)); then
    if ! command -v sudo >/dev/null; then
        echo "These packages are missing; install them as root: ${missing[*]}" >&2
        exit 1
    fi
    as_root=(sudo)
fi
echo "Installing ${#missing[@]} packages: ${missing[*]}"
"${as_root[@]}" apt-get update -qq
"${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
