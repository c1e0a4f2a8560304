#!/usr/bin/env bash
# Makes the welcome video from the frames of the drawing tool and the music of music.py by ffmpeg.
#
#   artwork/make_film.sh TOOL SCREENSHOTS FILM
#
# TOOL is the built sparrowfield-artwork. SCREENSHOTS is the folder with the pictures of a walk at
# 1024x768 (build/walk). The film shows its pictures of the catalogue, a lesson and a publisher's
# answer. Needs ffmpeg.
set -euo pipefail
[ $# -eq 3 ] || {
    sed -n '4s/^# *//p' "$0" >&2
    exit 2
}
here=$(cd "$(dirname "$0")" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir "$work/screens"
cp "$2/1024x768-2-study.png" "$work/screens/catalogue.png"
cp "$2/1024x768-7-passage.png" "$work/screens/lesson.png"
cp "$2/1024x768-5-answer.png" "$work/screens/answer.png"
"$1" film "$work/screens" "$work/frames"
python3 "$here/music.py" "$work/music.wav"
ffmpeg -y -loglevel error -framerate 20 -i "$work/frames/frame-%04d.png" -i "$work/music.wav" -shortest \
    -c:v wmv2 -b:v 560k -maxrate 900k -bufsize 2M -g 60 -c:a wmav2 -b:a 48k \
    -metadata title="Sparrowfield Interactive Bible Study" -fflags +bitexact "$work/film.wmv"
mv "$work/film.wmv" "$3"
ls -l "$3"
