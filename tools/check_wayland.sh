#!/usr/bin/env bash
# Walks through the desktop program under Wayland, with the same walks as tests/walk/walk.sh and one of its own, wayland/wayland_road.py.
# The compositor is sway without a screen; pointer and keyboard are its virtual ones, which wayland/devices.py drives. Not for root.
#   tools/check_wayland.sh DISC_FOLDER PICTURE_FOLDER [SIZE...]
# The sizes are those of the screen, 1024x768 and 1920x1080 by default. WALK_TITLE_BAR=40 makes the title bars that high, WALK_ROADS
# chooses walks by name.
set -uo pipefail
here=$(cd "$(dirname "$0")" && pwd)
GiveUp() {
    echo "check_wayland: $*" >&2
    exit 1
}
[ $# -ge 2 ] || GiveUp "usage: check_wayland.sh DISC_FOLDER PICTURE_FOLDER [SIZE...]"
[ "$(id -u)" -ne 0 ] || GiveUp "run this as an ordinary user"
for command in sway swaymsg grim dbus-run-session compare; do
    command -v $command >/dev/null || GiveUp "$command is missing; packaging/packages.sh lists the packages (waylandPackages)"
done
disc=$(realpath "$1")
mkdir -p "$2"
pictures=$(realpath "$2")
sizes=("${@:3}")
[ ${#sizes[@]} -gt 0 ] || sizes=(1024x768 1920x1080)
read -ra roads <<<"${WALK_ROADS:-wayland_road windows_road lesson_road reader_road maps_road access_road setup_road}"

# Title bars are as high as their letters and twice the padding. Windows fill the screen under their title bar, one at a time, as
# maximised windows do elsewhere; those with an owner or a fixed size float.
Configuration() { # SIZE
    local letters=15 height=${WALK_TITLE_BAR:-25}
    cat <<CONFIG
xwayland disable
output HEADLESS-1 resolution $1 position 0,0
output * bg #405060 solid_color
default_border normal
workspace_layout tabbed
focus_follows_mouse no
titlebar_padding 5 $(((height - letters) / 2))
bindsym Alt+F4 kill
CONFIG
}

# One walk, with a compositor and a message bus of its own.
Walk() { # ROAD SIZE
    local folder road=$here/../tests/walk/$1.py status=0
    [ -e "$road" ] || road=$here/wayland/$1.py
    folder=$(mktemp -d)
    Configuration "$2" >"$folder/config"
    # shellcheck disable=SC2016 # The inner shell expands its own parameters.
    env -u DISPLAY XDG_RUNTIME_DIR="$folder" XDG_SESSION_TYPE=wayland WLR_BACKENDS=headless WLR_LIBINPUT_NO_DEVICES=1 WLR_RENDERER=pixman \
        SWAYSOCK="$folder/sway" WALK_LOG="$folder/program.log" WALK_SIZE="$2" WALK_SCALE=1 WALK_SCREEN=sway \
        PYTHONPATH="$here/wayland:$here/../tests/walk" dbus-run-session -- bash -c '
            sway --config "$XDG_RUNTIME_DIR/config" >"$XDG_RUNTIME_DIR/sway.log" 2>&1 &
            trap "kill %1; wait" EXIT
            for turn in $(seq 100); do
                display=$(find "$XDG_RUNTIME_DIR" -name "wayland-?" -printf %f)
                [ -z "$display" ] || ! swaymsg -t get_version >/dev/null 2>&1 || break
                sleep 0.1
            done
            WAYLAND_DISPLAY=$display /usr/bin/python3 -B "$@"' walk "$road" "$disc" "$pictures" "$2" 2>&1 | sed '/^dbus-daemon\|^SpiRegistry/d' || status=1
    cp "$folder/program.log" "$pictures/$1-$2.log" 2>/dev/null
    rm -rf "$folder"
    return $status
}

failed=()
for size in "${sizes[@]}"; do
    for road in "${roads[@]}"; do
        printf -- '-- %s on a screen of %s\n' "$road" "$size"
        Walk "$road" "$size" || failed+=("$road on $size")
    done
done
[ ${#failed[@]} -eq 0 ] || GiveUp "failed: ${failed[*]}"
echo "All walks passed under Wayland; the pictures are in $pictures."
