#!/bin/sh
# Installs the Debian packages that the project is built with, those that are missing. Uses sudo where the user is not root.
set -eu
cd "$(dirname "$0")/.."

missing=
for package in $(sed 's/#.*//' packages.txt); do
    dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null | grep -qx installed || missing="$missing $package"
done
[ -n "$missing" ] || exit 0

echo "Installing:$missing"
run=
[ "$(id -u)" -eq 0 ] || run=sudo
export DEBIAN_FRONTEND=noninteractive
$run apt-get -o DPkg::Lock::Timeout=900 update -q
# shellcheck disable=SC2086
$run apt-get -o DPkg::Lock::Timeout=900 install -y -q --no-install-recommends $missing
