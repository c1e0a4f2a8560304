#!/usr/bin/env bash
# Adds an entry for the program in build/disc to the user's application menu.
# To remove it, delete the file that this script prints.
set -euo pipefail
export LC_ALL=C # bytes, not characters
root=$(cd "$(dirname "$0")/.." && pwd)
disc=$root/build/disc
program=$disc/sparrowfield
for needed in "$program" "$disc"; do
    [ -e "$needed" ] || { echo "$needed is missing: run ./run.sh first." >&2; exit 1; }
done
if ! printf %s "$disc" | iconv -f UTF-8 -t UTF-8 >/dev/null 2>&1; then
    echo "The path of this folder isn't UTF-8, as a menu entry needs it; no entry was added." >&2
    exit 1
fi

# shellcheck disable=SC1003 # The single-quoted backslash is intended.
# By the Desktop Entry Specification 1.5, an argument of a command line is quoted first; then the
# text is escaped as the value of a key.
quoted() {
    local word=$1 character
    for character in '\' '"' '`' '$'; do word=${word//"$character"/"\\$character"}; done
    printf '"%s"' "$word"
}
# shellcheck disable=SC1003
value() {
    local text=${1//'\'/'\\'}
    text=${text//$'\n'/'\n'}
    text=${text//$'\r'/'\r'}
    printf %s "${text//$'\t'/'\t'}"
}
# The path of a program must not contain "=", and desktops don't find a path with "%" in it.
case $program in
*[=%]*) command='sh -c "exec ./sparrowfield"' ;;
*) command=$(quoted "$program") ;;
esac

entry=${XDG_DATA_HOME:-$HOME/.local/share}/applications/sparrowfield.desktop
mkdir -p "$(dirname "$entry")"
while IFS= read -r line; do
    case $line in
    Exec=*) printf 'Exec=%s\nPath=%s\n' "$(value "$command")" "$(value "$disc")" ;;
    Icon=*) printf 'Icon=%s\n' "$(value "$disc/icons/sparrowfield.svg")" ;;
    *) printf '%s\n' "$line" ;;
    esac
done <"$root/packaging/sparrowfield.desktop" >"$entry"
echo "Added: $entry"
