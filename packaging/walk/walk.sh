#!/usr/bin/env bash
# Walks through the desktop program on a screen in memory, with real keys and clicks, once on a small and once on a large
# screen: the main road, all windows, the Bible reader, the maps. Says what it saw, leaves pictures of each screen in build/walk/ with a
# page index.html that shows them in order, and fails where the program doesn't do what a person expects.
#   packaging/walk/walk.sh DISC_FOLDER [PICTURE_FOLDER]
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
disc=$(realpath "$1")
pictures=${2:-$here/../../build/walk}
mkdir -p "$pictures"
pictures=$(realpath "$pictures")
rm -f "$pictures"/*.png "$pictures"/index.html

WalkAt() {
    echo "-- on a screen of $1"
    xvfb-run --auto-servernum --server-args="-screen 0 ${1}x24 -nolisten tcp" \
        dbus-run-session -- bash -c '
            openbox >/dev/null 2>&1 &
            trap "kill %1" EXIT
            cd "$0"
            for road in lesson_road windows_road reader_road maps_road; do
                /usr/bin/python3 -B "$road.py" "$@" || exit
            done' "$here" "$disc" "$pictures" "$1"
}

WalkAt 1024x768
WalkAt 1920x1080
/usr/bin/python3 -B "$here/album.py" "$pictures" 1024x768 1920x1080
