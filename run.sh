#!/usr/bin/env bash
# Prepares a Debian 12 machine, builds the program and the disc, and starts the program on the disc.
# Without a display it runs an automatic walk through the program on a virtual screen instead, which
# saves pictures. Can be run again at any time; it builds only what has changed.
set -euo pipefail
cd "$(dirname "$0")"
. packaging/packages.sh

Say() { printf '\n== %s\n' "$*"; }
GiveUp() {
    echo "$*" >&2
    exit 1
}

display=${DISPLAY:-}${WAYLAND_DISPLAY:-}
packages=("${buildPackages[@]}" "${runPackages[@]}" "${discPackages[@]}")
[ -n "$display" ] || packages+=("${walkPackages[@]}")

Say "Packages"
InstallMissing "${packages[@]}" || GiveUp "The program can't be built without these packages."

Say "Building the program (the first time takes some minutes)"
export NINJA_STATUS="[%f of %t, %es] "
mkdir -p build
cmake --preset release -DSPARROWFIELD_TESTS=OFF -DSPARROWFIELD_BENCH=OFF >build/configure.log 2>&1 ||
    { cat build/configure.log >&2; GiveUp "The build couldn't be configured."; }
cmake --build --preset release || GiveUp "The build failed."
[ -x build/release/bin/sparrowfield ] || GiveUp "The build gave no program."

Say "Making the disc"
packaging/make_disc.sh build/disc build/release/bin || GiveUp "The disc couldn't be made."

if [ -n "$display" ]; then
    Say "Starting Sparrowfield"
    cd build/disc
    exec ./sparrowfield
fi
Say "There is no display: walking through the program on a screen in memory"
tests/walk/walk.sh build/disc || GiveUp "The walk failed."
echo "build/walk/index.html shows the pictures."
