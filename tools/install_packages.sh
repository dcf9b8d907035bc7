#!/bin/bash
# install_packages.sh [build|run|test|bench]…: installs the Debian packages of packages.txt that are missing, by default
# those to build, run and test. Asks nothing and touches nothing when all are there.
set -euo pipefail
table=$(dirname "$0")/packages.txt
[ $# -gt 0 ] || set -- build run test

purposes=" $* "
wanted=() missing=()
while read -r purpose package; do
    [[ $purposes == *" $purpose "* ]] && wanted+=("$package")
done < <(grep -v '^#' "$table" | grep .)

is_installed() { [ "$(dpkg-query -W -f '${db:Status-Status}' "$1" 2> /dev/null)" = installed ]; }

for package in "${wanted[@]}"; do
    is_installed "$package" || missing+=("$package")
done
[ ${#missing[@]} -gt 0 ] || exit 0

as_root=()
if [ "$(id -u)" -ne 0 ]; then
    command -v sudo > /dev/null || { echo "Missing packages; become root and run: apt-get install ${missing[*]}" >&2; exit 1; }
    as_root=(sudo)
fi
echo "Installing what is missing: ${missing[*]}"
"${as_root[@]}" apt-get update -qq
"${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}" > /dev/null
