#!/usr/bin/env bash
# Walks through the desktop program on a screen in memory, with real keys and clicks: the main road, all windows, the Bible reader, the
# maps, everything once more by what docs/accessibility.md promises, and the installer. Says what it saw, leaves pictures of each screen in build/walk/ with a
# page index.html that shows them in order, and fails where the program doesn't do what a person expects.
#   packaging/walk/walk.sh DISC_FOLDER [PICTURE_FOLDER [SCREEN...]]
# SCREEN is a size in pixels, or SIZE@DPI for the accessibility of enlarged windows alone (96 dpi are 100 %); left out: a small screen, a large one, and
# a large one at 150 %.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
disc=$(realpath "$1")
pictures=${2:-$here/../../build/walk}
screens=("${@:3}")
[ ${#screens[@]} -gt 0 ] || screens=(1024x768 1920x1080 1920x1080@144)
mkdir -p "$pictures"
pictures=$(realpath "$pictures")
rm -f "$pictures"/*.png "$pictures"/index.html

WalkAt() { # SIZE DPI ROAD...
    local size=$1 dpi=$2
    shift 2
    echo "-- on a screen of $size, $((dpi * 100 / 96)) %"
    # Without -noreset the screen would forget its scale with the first client that leaves.
    xvfb-run --auto-servernum --server-args="-screen 0 ${size}x24 -nolisten tcp -noreset" \
        dbus-run-session -- bash -c '
            xprop -root -format RESOURCE_MANAGER 8s -set RESOURCE_MANAGER "$(printf "Xft.dpi:\t%s\n" "$4")"
            openbox >/dev/null 2>&1 &
            trap "kill %1" EXIT
            cd "$0"
            export WALK_SCALE=$(/usr/bin/python3 -c "print($4 / 96)")
            for road in "${@:5}"; do
                /usr/bin/python3 -B "$road.py" "${@:1:3}" || exit
            done' "$here" "$disc" "$pictures" "$size" "$dpi" "$@"
}

sizes=()
for screen in "${screens[@]}"; do
    case $screen in
        *@*) WalkAt "${screen%@*}" "${screen#*@}" access_road setup_road ;;
        *)
            WalkAt "$screen" 96 lesson_road windows_road reader_road maps_road access_road setup_road
            sizes+=("$screen")
            ;;
    esac
done
[ ${#sizes[@]} -eq 0 ] || /usr/bin/python3 -B "$here/album.py" "$pictures" "${sizes[@]}"
