#!/usr/bin/env bash
# Does the same tree give the same package? Builds what is committed a second time, from a clone in another folder and with
# another locale, time zone, umask, user name, home and number of jobs, without ccache, and compares both packages with those in
# build/package, byte for byte. Make those with packaging/make_package.sh, from the same commit.
#   tools/check_reproducible.sh [FOLDER]
# FOLDER is where the clone is made, better on another file system, such as /dev/shm; it is removed at the end. Without it, a
# temporary folder is used.
set -euo pipefail
cd "$(dirname "$0")/.."
[ -n "$(ls build/package/*.deb 2>/dev/null)" ] || {
    echo "There is no package: run packaging/make_package.sh first." >&2
    exit 1
}
[ -z "$(git status --porcelain)" ] || echo "Changes that aren't committed are not in the second build." >&2
first=$PWD/build/package
place=$(mktemp -d -p "${1:-${TMPDIR:-/tmp}}" "second build.XXXX")
trap 'rm -rf "$place"' EXIT
second="$place/a tree with another name"
(
    umask 077
    git clone -q . "$second"
    mkdir "$place/home"
    env -i PATH="$PATH" HOME="$place/home" USER=somebody LANG=tr_TR.UTF-8 TZ=Pacific/Kiritimati CCACHE_DISABLE=1 \
        CMAKE_BUILD_PARALLEL_LEVEL=1 nice "$second/packaging/make_package.sh"
) >build/second.log 2>&1 || { tail build/second.log >&2; exit 1; }

status=0
for package in "$first"/*.deb "$first"/*.ddeb; do
    other="$second/build/package/${package##*/}"
    if cmp "$package" "$other"; then
        echo "${package##*/}: the same, $(sha256sum <"$package" | cut -d ' ' -f 1)"
    else
        status=1
        if command -v diffoscope >/dev/null; then diffoscope --max-report-size 20000 "$package" "$other" || true; fi
    fi
done
exit $status
