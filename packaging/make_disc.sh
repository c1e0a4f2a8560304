#!/usr/bin/env bash
# Makes the demonstration disc: the folder in which the program runs, with all files that it opens.
#
#   packaging/make_disc.sh FOLDER PROGRAMS
#
# PROGRAMS is the folder of the built programs. The texts come from data/, the Bibles from the
# Debian packages sword-text-kjv and sword-text-web. Only files whose content changes are written,
# so a second run is fast. Study and verse files without a source are removed; no other file in the
# folder is touched.
set -euo pipefail
[ $# -eq 2 ] || {
    sed -n '2,4s/^# \{0,1\}//p' "$0" >&2
    exit 2
}
mkdir -p "$1"
disc=$(cd "$1" && pwd)
programs=$(cd "$2" && pwd)
cd "$(dirname "$0")/.."
kit=$programs/sparrowfield-kit
exports=$disc/../exports # beside the disc, not on it

# Export MODULE PACKAGE: prints the path of a module's text export, which is made once for each
# version of the package.
Export() {
    local version file
    version=$(dpkg-query -W -f='${Version}' "$2") || return 1
    file=$exports/$1-${version//[^A-Za-z0-9.]/_}.imp
    if [ ! -s "$file" ]; then
        mkdir -p "$exports"
        mod2imp "$1" >"$file.new" || return 1
        mv "$file.new" "$file"
    fi
    echo "$file"
}

# Bring FILE NAME: copies a file to the disc if it differs, even while a program on the disc runs.
Bring() {
    cmp -s "$1" "$disc/$2" && return
    cp "$1" "$disc/.new-file"
    mv "$disc/.new-file" "$disc/$2"
    echo "$disc/$2: written."
}

echo "The King James Version:"
export=$(Export engKJV2006eb sword-text-kjv)
"$kit" bible import --from "$export" --as kjv --to "$disc" \
    --about "This is the King James Version in its text of 1769."
echo "The World English Bible, in the second place:"
export=$(Export engWEB2015eb sword-text-web)
"$kit" bible import --from "$export" --as nasb --to "$disc" \
    --about "This is the World English Bible. The New American Standard is protected and can't be passed on here."

for source in data/studies/*.txt; do
    "$kit" study make "$source" --bible "$disc" --to "$disc"
done
"$kit" text make data/general.txt --to "$disc"
for file in "$disc"/*-[12].dat "$disc"/V-*; do
    study=$(basename "$file" | sed -E 's/^V-(.*)[12]s?$/\1/; s/-[12]\.dat$//')
    [ -e "data/studies/$study.txt" ] || { rm -f "$file" && echo "$file: removed."; }
done

Bring data/disc-readme.txt README.txt
for file in data/disc/*; do Bring "$file" "$(basename "$file")"; done
mkdir -p "$disc/icons"
for size in 16 22 24 32 48 64 128 256; do
    Bring "artwork/pictures/icon-$size.png" "icons/sparrowfield-$size.png"
done
Bring artwork/pictures/icon.svg icons/sparrowfield.svg
for program in sparrowfield sparrowfield-drive sparrowfield-kit; do
    if [ -x "$programs/$program" ]; then Bring "$programs/$program" "$program"; fi
done
if [ -x "$programs/sparrowfield-setup" ]; then Bring "$programs/sparrowfield-setup" Setup.exe; fi
