#!/usr/bin/env bash
# Installs the Debian packages listed under scripts/packages/ that are not installed yet.
# A second run only asks dpkg and is quick.
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)

wanted=$(cat "$here"/packages/*.txt | sed -e 's/#.*//' | tr -s ' \t' '\n' | sed '/^$/d' | sort -u)
missing=()
for pkg in $wanted; do
    dpkg -s "$pkg" >/dev/null 2>&1 || missing+=("$pkg")
done
[ ${#missing[@]} -eq 0 ] && exit 0

echo "setup: installing ${missing[*]}"
sudo_cmd=()
[ "$(id -u)" -eq 0 ] || sudo_cmd=(sudo)
export DEBIAN_FRONTEND=noninteractive
"${sudo_cmd[@]}" apt-get update -qq
"${sudo_cmd[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}"
