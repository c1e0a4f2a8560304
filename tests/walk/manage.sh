#!/usr/bin/env bash
# Runs a command on an X11 screen under a window manager, and ends the window manager with it.
#   WALK_MANAGER=xfwm4 tests/walk/manage.sh COMMAND...
#   WALK_TITLE_BAR=40 tests/walk/manage.sh COMMAND...
# WALK_MANAGER is openbox (the default), xfwm4 or marco. WALK_TITLE_BAR is the height of title bars
# in pixels, at least 24, and for openbox only; by default it is that of the theme.
set -uo pipefail
manager=${WALK_MANAGER:-openbox} height=${WALK_TITLE_BAR:-}
folder=$(mktemp -d)
trap 'kill %1 2>/dev/null; wait; rm -r "$folder"' EXIT

# Openbox's own theme with more space above and below the letters of a title.
MakeTheme() { # HEIGHT
    local letters=16
    mkdir -p "$folder/themes/high/openbox-3"
    sed "s/^padding.height:.*/padding.height: $((($1 - letters) / 2))/" \
        /usr/share/themes/Clearlooks/openbox-3/themerc >"$folder/themes/high/openbox-3/themerc"
    sed "s,<name>Clearlooks</name>,<name>high</name>," /etc/xdg/openbox/rc.xml >"$folder/rc.xml"
}

# A window that opens before the window manager is ready may never become active or visible. Openbox
# marks the screen when it is; the others name themselves there.
IsReady() { xprop -root WALK_MANAGED _NET_SUPPORTING_WM_CHECK | grep -q "$ready"; }

ready='_NET_SUPPORTING_WM_CHECK.*#'
case $manager in
    openbox)
        ready='WALK_MANAGED.*yes'
        options=(--startup "xprop -root -format WALK_MANAGED 8s -set WALK_MANAGED yes")
        [ -z "$height" ] || { MakeTheme "$height" && options+=(--config-file "$folder/rc.xml"); }
        XDG_DATA_HOME=$folder openbox "${options[@]}" >/dev/null 2>&1 &
        ;;
    xfwm4) xfwm4 --compositor=off >/dev/null 2>&1 & ;;
    marco) GSETTINGS_BACKEND=memory marco --no-composite >/dev/null 2>&1 & ;;
    *)
        echo "manage: unknown window manager $manager" >&2
        exit 1
        ;;
esac
until IsReady; do
    kill -0 %1 || exit
    sleep 0.1
done
"$@"
