#!/usr/bin/env bash
# Makes the Debian package in build/package: builds the release, makes the disc, packages both. Can
# be run again at any time.
set -euo pipefail
cd "$(dirname "$0")/.."
. packaging/packages.sh

echo "== Packages"
InstallMissing "${buildPackages[@]}" "${runPackages[@]}" "${discPackages[@]}" dpkg-dev file
echo "== Building"
mkdir -p build
cmake --preset release -DSPARROWFIELD_TESTS=OFF -DSPARROWFIELD_BENCH=OFF -DCMAKE_INSTALL_PREFIX=/usr >build/configure.log 2>&1 ||
    { cat build/configure.log >&2; exit 1; }
cmake --build --preset release
echo "== Making the disc"
packaging/make_disc.sh build/disc build/release/bin
echo "== Packing"
rm -rf build/package
(cd build/release && cpack -G DEB)
ls -l build/package/*.deb
