#!/usr/bin/env bash
# Adds Sparrowfield to the user's own application menu: the program and the disc as they lie in build/ now.
# To take it out again, delete the file that this names.
set -euo pipefail
root=$(cd "$(dirname "$0")/../.." && pwd)
disc=$root/build/disc
program=$disc/sparrowfield
for needed in "$program" "$disc"; do
    [ -e "$needed" ] || { echo "$needed is missing: run ./run.sh first." >&2; exit 1; }
done
entry=${XDG_DATA_HOME:-$HOME/.local/share}/applications/sparrowfield.desktop
text=$(<"$root/packaging/desktop/sparrowfield.desktop")
text=${text//@PROGRAM@/"$program"}
mkdir -p "$(dirname "$entry")"
printf '%s\n' "${text//@DISC@/"$disc"}" >"$entry"
echo "Added: $entry"
