#!/usr/bin/env bash
# Follows the first steps of the README on a minimal Debian: clones the last commit, runs the tests,
# runs the program (as an automatic walk, since there is no display), makes the package, and tests
# the package in another new system. Takes about half an hour on two cores. Needs root and
# debootstrap.
#
#   tools/check_clone.sh [FOLDER]
#
# FOLDER is for the systems and is removed at the end; by default a temporary folder.
set -euo pipefail
cd "$(dirname "$0")/.."
. packaging/packages.sh
. tools/fresh_system.sh
Say() { printf '\n== %s (%s)\n' "$*" "$(date +%T)"; }
GiveUp() {
    echo "check_clone: $*" >&2
    exit 1
}
[ "$(id -u)" -eq 0 ] || GiveUp "this needs root"
InstallMissing debootstrap git
place=${1:-$(mktemp -d)}

Say "A fresh system"
MakeSystem "$place/clone" || GiveUp "no system"
git clone -q . "$root/srv/sparrowfield"

Say "./test.sh"
In /srv/sparrowfield/test.sh || GiveUp "test.sh failed"
Say "./test.sh again"
In /srv/sparrowfield/test.sh | tail -n 1
Say "./run.sh"
In /srv/sparrowfield/run.sh || GiveUp "run.sh failed"
Say "The package"
In /srv/sparrowfield/packaging/make_package.sh || GiveUp "no package"
mkdir -p build/package
rm -f build/package/*.deb
cp "$root"/srv/sparrowfield/build/package/*.deb build/package/
RemoveSystem
tools/check_package.sh "$place/package"
rmdir "$place" 2>/dev/null || true
Say "Done"
