#!/usr/bin/env bash
# Makes the Debian package in build/package: builds the release, makes the disc, packages both. Can
# be run again at any time. The same tree always gives the same package: its files have the date of
# packaging/debian/changelog, and it contains a disc of its own, not build/disc, to which somebody
# may have added something.
set -euo pipefail
cd "$(dirname "$0")/.."
. packaging/packages.sh
export LC_ALL=C.UTF-8
umask 022

echo "== Packages"
InstallMissing "${buildPackages[@]}" "${runPackages[@]}" "${discPackages[@]}" dpkg-dev file
echo "== Building"
mkdir -p build
cmake --preset release -DSPARROWFIELD_TESTS=OFF -DSPARROWFIELD_BENCH=OFF -DCMAKE_INSTALL_PREFIX=/usr \
    -DSPARROWFIELD_DISC="$PWD/build/release/disc" >build/configure.log 2>&1 ||
    { cat build/configure.log >&2; exit 1; }
cmake --build --preset release
echo "== Making the disc"
rm -rf build/release/disc
packaging/make_disc.sh build/release/disc build/release/bin
echo "== Packing"
SOURCE_DATE_EPOCH=$(dpkg-parsechangelog -l packaging/debian/changelog -S Timestamp)
export SOURCE_DATE_EPOCH
rm -rf build/package
(cd build/release && cpack -G DEB)

# CPack takes the installed size from the blocks of this file system, and lists the debug symbols by their paths in this
# folder. So both packages are packed once more: with paths as installed, and the size by the rule of dpkg-gencontrol(1).
tree=build/package/tree
for package in build/package/*.deb build/package/*.ddeb; do
    dpkg-deb -R "$package" $tree
    if [[ $package == *-dbgsym_* ]]; then
        mkdir -p $tree/usr/share/doc
        ln -s sparrowfield $tree/usr/share/doc/sparrowfield-dbgsym # the documents that every package needs
    fi
    (cd $tree && find usr -type f -print0 | sort -z | xargs -0 md5sum >DEBIAN/md5sums)
    size=$(find $tree/usr -printf '%y %s\n' | awk '{ total += $1 == "f" ? int(($2 + 1023) / 1024) : 1 } END { print total }')
    sed -i "s/^Installed-Size: .*/Installed-Size: $size/" $tree/DEBIAN/control
    dpkg-deb --root-owner-group -Zgzip -b $tree "$package" >/dev/null
    rm -r $tree
done
ls -l build/package/*.deb build/package/*.ddeb
