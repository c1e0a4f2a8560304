#!/usr/bin/env bash
# Walks through the desktop program on a virtual screen, with real keys and clicks: the main path,
# all windows, the Bible reader, the maps, all rules of docs/accessibility.md, and the installer.
# Reports what it saw, saves pictures of each screen in build/walk/ with a page index.html that
# shows them in order, and fails if the program doesn't behave as expected.
#
#   tests/walk/walk.sh DISC_FOLDER [PICTURE_FOLDER [SCREEN...]]
#
# SCREEN is a size in pixels, or SIZE@DPI to test only the accessibility of enlarged windows (96 dpi
# is 100 %). By default: a small screen, a large one, and a small one at 150 and 200 %.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
disc=$(realpath "$1")
pictures=${2:-$here/../../build/walk}
screens=("${@:3}")
[ ${#screens[@]} -gt 0 ] || screens=(1024x768 1920x1080 1366x768@144 1366x768@192)
mkdir -p "$pictures"
pictures=$(realpath "$pictures")
rm -f "$pictures"/*.png "$pictures"/index.html

# The walks mostly wait, so two run at a time; the longest starts first.
roads=() sizes=()
for screen in "${screens[@]}"; do
    case $screen in
        *@*) roads+=("access_road ${screen%@*} ${screen#*@}" "setup_road ${screen%@*} ${screen#*@}") ;;
        *)
            for road in access_road windows_road lesson_road reader_road maps_road setup_road; do roads+=("$road $screen 96"); done
            sizes+=("$screen")
            ;;
    esac
done
# shellcheck disable=SC2016 # The inner shell expands its own parameters.
printf '%s\n' "${roads[@]}" | xargs -P 2 -I '{}' bash -c '"$0" $1 "${@:2}"' "$here/road.sh" '{}' "$disc" "$pictures"
[ ${#sizes[@]} -eq 0 ] || /usr/bin/python3 -B "$here/album.py" "$pictures" "${sizes[@]}"
