#!/usr/bin/env bash
# Tests the Debian package in a new system: installs it with its dependencies, walks through the
# installed program, removes the package, and looks for files left behind. Needs root and
# debootstrap.
#
#   tools/check_package.sh [FOLDER]
#
# FOLDER is for the system and is removed at the end; by default a temporary folder.
set -euo pipefail
cd "$(dirname "$0")/.."
. packaging/packages.sh
. tools/fresh_system.sh
Say() { printf '\n== %s\n' "$*"; }
GiveUp() {
    echo "check_package: $*" >&2
    exit 1
}
[ "$(id -u)" -eq 0 ] || GiveUp "this needs root"
package=$(ls build/package/*.deb 2>/dev/null) || GiveUp "there is no package: run packaging/make_package.sh first"
InstallMissing debootstrap desktop-file-utils appstream

Say "A fresh system"
MakeSystem "${1:-$(mktemp -d)}" || GiveUp "no system"

Say "Installing the package"
cp "$package" "$root/srv/sparrowfield.deb"
In apt-get install -y --no-install-recommends /srv/sparrowfield.deb >"$root/srv/install.log" 2>&1 || { tail "$root/srv/install.log" >&2; GiveUp "it can't be installed"; }
for file in usr/bin/sparrowfield usr/bin/sparrowfield-kit usr/bin/sparrowfield-drive usr/lib/sparrowfield/Program/sparrowfield \
    usr/lib/sparrowfield/Program/mount-1.dat usr/lib/sparrowfield/Program/map9.jpg usr/lib/sparrowfield/Program/kjv/kjv1 usr/lib/sparrowfield/Program/biblenasb.about \
    usr/share/icons/hicolor/scalable/apps/sparrowfield.svg usr/share/man/man1/sparrowfield.1.gz; do
    [ -e "$root/$file" ] || [ -e "$root/${file%.gz}" ] || GiveUp "$file isn't there"
done
tools/check_binaries.sh "$root"/usr/lib/sparrowfield/Program/sparrowfield "$root"/usr/bin/sparrowfield-{kit,drive} || GiveUp "its programs aren't built as they are to be"
[ -n "$(ls build/package/*-dbgsym_*.ddeb 2>/dev/null)" ] || GiveUp "there are no debug symbols beside it"
In ldd /usr/lib/sparrowfield/Program/sparrowfield | grep "not found" && GiveUp "a library is missing"
In sparrowfield-kit --help >/dev/null
printf 'press frmSplash 32\ntree frmContents.TreeView1\n' |
    In sh -c 'cd /usr/lib/sparrowfield/Program && sparrowfield-drive --app . ' | grep -q "Sermon on the Mount" || GiveUp "the studies aren't found"
desktop-file-validate "$root"/usr/share/applications/house.sparrowfield.Sparrowfield.desktop
appstreamcli validate --no-net "$root"/usr/share/metainfo/house.sparrowfield.Sparrowfield.metainfo.xml

Say "Walking through the program as it is installed"
In apt-get install -y --no-install-recommends python3 "${walkPackages[@]}" >"$root/srv/walk.log" 2>&1 || { tail "$root/srv/walk.log" >&2; GiveUp "no walk"; }
mkdir -p "$root/srv/tests"
cp -r tests/walk "$root/srv/tests/walk"
cp -r docs "$root/srv/docs"
In /srv/tests/walk/walk.sh /usr/lib/sparrowfield/Program /srv/pictures 2>build/package/walk.log || { tail -n 5 build/package/walk.log >&2; GiveUp "the walk failed"; }
mkdir -p build/package/walk
cp "$root"/srv/pictures/* build/package/walk/

Say "Removing the package"
In apt-get purge -y sparrowfield >/dev/null 2>&1
left=$(find "$root/usr" "$root/etc" "$root/opt" -iname '*sparrowfield*' | head)
[ -z "$left" ] || GiveUp "left behind: $left"
echo "The package installs, starts, walks and goes without a trace. Pictures: build/package/walk/index.html"
