#!/usr/bin/env bash
# Tries the Debian package as a user would, in a fresh system: installs it, walks through the installed program, starts it under
# Wayland, removes it; then upgrades from an earlier version with a user's answers and notes in place, and removes it again.
# The answers and notes must stay as they are, byte for byte. Needs root and debootstrap.
#   tools/check_package.sh [--quick] [FOLDER]
# FOLDER is where the system is made; it is removed at the end. Without it, a temporary folder is used. --quick leaves out the walk
# and Wayland.
# shellcheck disable=SC2016 # dpkg and the inner shells expand their own parameters.
set -euo pipefail
cd "$(dirname "$0")/.."
. packaging/packages.sh
. tools/fresh_system.sh
Say() { printf '\n== %s\n' "$*"; }
GiveUp() {
    echo "check_package: $*" >&2
    exit 1
}
isQuick=
[ "${1:-}" != --quick ] || { isQuick=1; shift; }
[ "$(id -u)" -eq 0 ] || GiveUp "this needs root"
package=$(ls build/package/*.deb 2>/dev/null) || GiveUp "there is no package: run packaging/make_package.sh first"
InstallMissing debootstrap desktop-file-utils appstream lintian dpkg-dev
version=$(dpkg-deb -f "$package" Version)

# Installs packages in the system, with what they depend on.
Install() { # LOG PACKAGE...
    In apt-get install -y --no-install-recommends "${@:2}" >"$root/srv/$1.log" 2>&1 ||
        { tail "$root/srv/$1.log" >&2; GiveUp "$1: apt-get can't install ${*:2}"; }
}
# Runs a command of sh as an ordinary user of the system, in that user's home.
AsReader() { In runuser -l reader -c "export LANG=C.UTF-8; $1"; }

Remove() { # remove|purge
    In apt-get "$1" -y sparrowfield >"$root/srv/remove.log" 2>&1 || { tail "$root/srv/remove.log" >&2; GiveUp "apt-get $1 failed"; }
}

# Nothing of the package may be in the system: no file, and after a purge no entry in dpkg's list.
ExpectGone() {
    local left
    left=$(find "$root/usr" "$root/etc" "$root/opt" "$root/var/lib/dpkg/info" -iname '*sparrowfield*' | head)
    [ -z "$left" ] || GiveUp "left behind: $left"
    [ -z "$(In dpkg-query -W -f '${db:Status-Abbrev}' sparrowfield 2>/dev/null)" ] || GiveUp "dpkg still lists it"
}

# Each file of the reader's: its hash, mode, owner, time and name.
ListWork() {
    AsReader 'cd .local/share/sparrowfield && find . -printf "%M %u %T@ %p\n" | sort && find . -type f -exec sha256sum {} + | sort -k 2'
}
ExpectSameWork() { # WHEN
    diff <(echo "$work") <(ListWork) || GiveUp "the user's folder was changed by $1"
}
# Runs a script of the installed sparrowfield-drive, as docs/drive.md tells, on the reader's own folder.
Drive() {
    AsReader 'cd /usr/lib/sparrowfield/Program && sparrowfield-drive --app . --user ~/.local/share/sparrowfield'
}

Say "The package's form"
symbols=$(ls build/package/sparrowfield-dbgsym_*.ddeb) || GiveUp "there are no debug symbols beside it"
lintian --allow-root --fail-on error,warning --tag-display-limit 0 "$package" "$symbols" || GiveUp "lintian objects"
[ "$version" = "$(dpkg-parsechangelog -l packaging/debian/changelog -S Version)" ] ||
    GiveUp "packaging/debian/changelog has another version than the package, $version"
echo "lintian finds no error and no warning."

Say "A fresh system"
MakeSystem "${1:-$(mktemp -d)}" || GiveUp "no system"
cp "$package" "$root/srv/sparrowfield.deb"

Say "Installing the package"
Install install /srv/sparrowfield.deb
for file in usr/bin/sparrowfield usr/bin/sparrowfield-kit usr/bin/sparrowfield-drive usr/lib/sparrowfield/Program/sparrowfield \
    usr/lib/sparrowfield/Program/mount-1.dat usr/lib/sparrowfield/Program/map9.jpg usr/lib/sparrowfield/Program/kjv/kjv1 usr/lib/sparrowfield/Program/biblenasb.about \
    usr/share/icons/hicolor/scalable/apps/sparrowfield.svg; do
    [ -e "$root/$file" ] || GiveUp "$file isn't there"
done
tools/check_binaries.sh "$root"/usr/lib/sparrowfield/Program/sparrowfield "$root"/usr/bin/sparrowfield-{kit,drive} || GiveUp "its programs aren't built as they are to be"
In ldd /usr/lib/sparrowfield/Program/sparrowfield | grep "not found" && GiveUp "a library is missing"
In sparrowfield-kit --help >/dev/null
printf 'press frmSplash 32\ntree frmContents.TreeView1\n' |
    In sh -c 'cd /usr/lib/sparrowfield/Program && sparrowfield-drive --app . ' | grep -q "Sermon on the Mount" || GiveUp "the studies aren't found"
desktop-file-validate "$root"/usr/share/applications/house.sparrowfield.Sparrowfield.desktop
appstreamcli validate --no-net "$root"/usr/share/metainfo/house.sparrowfield.Sparrowfield.metainfo.xml
In useradd -m -s /bin/sh reader

if [ -z "$isQuick" ]; then
    Say "Starting it under Wayland"
    Install wayland weston
    AsReader '
        export XDG_RUNTIME_DIR=$HOME/run XDG_SESSION_TYPE=wayland WAYLAND_DISPLAY=wayland-check
        mkdir -m 700 "$XDG_RUNTIME_DIR"
        weston --backend=headless-backend.so --no-config --idle-time=0 --socket=$WAYLAND_DISPLAY >weston.log 2>&1 & weston=$!
        for turn in $(seq 100); do [ ! -S "$XDG_RUNTIME_DIR/$WAYLAND_DISPLAY" ] || break; sleep 0.1; done
        sparrowfield >sparrowfield.log 2>&1 & program=$!
        sleep 10
        status=0
        grep -q libqwayland /proc/$program/maps || { cat sparrowfield.log weston.log >&2; status=1; }
        kill $program $weston
        wait
        exit $status' || GiveUp "it doesn't run under Wayland"
    echo "The program runs with Qt's plug-in for Wayland."

    Say "Walking through the program as it is installed"
    Install walk python3 "${walkPackages[@]}"
    mkdir -p "$root/srv/tests"
    cp -r tests/walk "$root/srv/tests/walk"
    cp -r docs "$root/srv/docs"
    In /srv/tests/walk/walk.sh /usr/lib/sparrowfield/Program /srv/pictures 2>build/package/walk.log || { tail -n 5 build/package/walk.log >&2; GiveUp "the walk failed"; }
    mkdir -p build/package/walk
    cp "$root"/srv/pictures/* build/package/walk/
fi
Remove purge
ExpectGone

Say "Upgrading from an earlier version"
# The same package with a lower number, and with one file more, which the upgrade must take away.
earlier=$root/srv/earlier
dpkg-deb -R "$package" "$earlier"
sed -i "s/^Version: .*/Version: 1.9-1/" "$earlier/DEBIAN/control"
echo earlier >"$earlier/usr/lib/sparrowfield/Program/earlier.txt"
dpkg-deb --root-owner-group -b "$earlier" "$root/srv/earlier.deb" >/dev/null
rm -r "$earlier"
Install earlier /srv/earlier.deb
[ -e "$root/usr/lib/sparrowfield/Program/earlier.txt" ] || GiveUp "the earlier version isn't there"
AsReader 'rm -rf .local/share/sparrowfield && mkdir -p .local/share'
Drive >"$root/srv/drive.log" <<'SCRIPT' || { cat "$root/srv/drive.log" >&2; GiveUp "the reader's work can't be typed"; }
press frmSplash 32
node frmContents.TreeView1 mount-1.dat:1
click frmWelcome.Command1
type frmMain.Text3 "Blessed, \u05d0\u05e9\u05e8\u05d9, are\r\nthe poor \u2026"
click frmMain.Command1
type frmMain.Text3 "caf\u00e9"
click frmMain.mnuFileClose
click frmContents.mnuBibleReader
set frmBible.txtVerse.Text "Jude 1"
click frmBible.cmdOkay
type frmBible.txtNotes "a plain note"
set frmBible.txtVerse.Text "Ruth 2"
click frmBible.cmdOkay
type frmBible.txtNotes "a note, \u05e8\u05d5\u05ea"
close frmBible
SCRIPT
work=$(ListWork)
echo "$(grep -c '^-' <<<"$work") files of answers, notes and settings"
Install upgrade /srv/sparrowfield.deb
[ "$(In dpkg-query -W -f '${Version}' sparrowfield)" = "$version" ] || GiveUp "the upgrade didn't bring version $version"
[ ! -e "$root/usr/lib/sparrowfield/Program/earlier.txt" ] || GiveUp "the upgrade left a file of the earlier version"
ExpectSameWork "the upgrade"
AsReader 'cp -rp .local/share/sparrowfield before-reading'
Drive >"$root/srv/read.log" <<'SCRIPT' || { cat "$root/srv/read.log" >&2; GiveUp "the reader's work can't be read"; }
press frmSplash 32
node frmContents.TreeView1 mount-1.dat:1
click frmWelcome.Command1
get frmMain.Text3.Text
click frmMain.Command2
get frmMain.Text3.Text
click frmMain.mnuFileClose
click frmContents.mnuBibleReader
set frmBible.txtVerse.Text "Jude 1"
click frmBible.cmdOkay
get frmBible.txtNotes.Text
set frmBible.txtVerse.Text "Ruth 2"
click frmBible.cmdOkay
get frmBible.txtNotes.Text
SCRIPT
diff - <(grep '"value"' "$root/srv/read.log") <<'ANSWERS' || GiveUp "the new version shows other answers or notes"
{"value":"café"}
{"value":"Blessed, אשרי, are\r\nthe poor …"}
{"value":"a plain note"}
{"value":"a note, רות"}
ANSWERS
AsReader 'rm -r .local/share/sparrowfield && mv before-reading .local/share/sparrowfield'
echo "The new version shows them, and the upgrade changed no byte."

Say "Removing and purging it"
Remove remove
ExpectSameWork "the removal"
ExpectGone
Install again /srv/sparrowfield.deb
Remove purge
ExpectSameWork "the purge"
ExpectGone
echo "The package installs, starts, upgrades and goes without a trace; what the user wrote stays."
