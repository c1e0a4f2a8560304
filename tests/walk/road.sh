#!/usr/bin/env bash
# Runs one walk through the program, with its own virtual screen, window manager and message bus.
# Prints its report at the end. manage.sh tells how another window manager than openbox is chosen.
#   tests/walk/road.sh ROAD SIZE DPI DISC_FOLDER PICTURE_FOLDER
set -uo pipefail
here=$(cd "$(dirname "$0")" && pwd)
road=$1 size=$2 dpi=$3 disc=$4 pictures=$5
screen=$size
[ "$dpi" -eq 96 ] || screen=$size@$dpi
# Without -noreset the screen would lose its scale when the first client disconnects.
# shellcheck disable=SC2016 # The inner shell expands its own parameters.
said=$(xvfb-run --auto-servernum --server-args="-screen 0 ${size}x24 -nolisten tcp -noreset" \
    dbus-run-session -- bash -c '
        xprop -root -format RESOURCE_MANAGER 8s -set RESOURCE_MANAGER "$(printf "Xft.dpi:\t%s\n" "$1")"
        # Windows are enlarged no further than the start-up screen, of 794x595 pixels, fits.
        # The first key press makes its keyboard the current one of the screen. A window manager
        # that is already running would then bind all its keys again, and miss keys in the meantime.
        xdotool key Shift_L
        export WALK_ASKED_SCALE=$(/usr/bin/python3 -c "print($1 / 96)")
        export WALK_SCALE=$(/usr/bin/python3 -c "print(max(1, min($1 / 96, ${2%x*} / 794, ${2#*x} / 595)))")
        exec "$0" /usr/bin/python3 -B "${@:3}"' "$here/manage.sh" "$dpi" "$size" "$here/$road.py" "$disc" "$pictures" "$screen" 2>&1)
status=$?
# Messages of the bus about its own start.
said=$(grep -v '^dbus-daemon\|^SpiRegistry' <<<"$said")
printf -- '-- %s on a screen of %s, %s %%\n%s\n' "$road" "$size" "$((dpi * 100 / 96))" "$said"
# A status of 255 tells xargs to start no further walk.
[ $status -eq 0 ] || exit 255
