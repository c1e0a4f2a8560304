#!/usr/bin/env bash
# Static analysis: clang-tidy with the checks of .clang-tidy, and cppcheck with its warnings about
# errors, performance and portability. Takes about half an hour the first time. The exit status is 1
# if either finds something.
#
#   tools/check_code.sh [FILE...]
#
# FILE... are the sources for clang-tidy; by default all of src/ and artwork/.
set -euo pipefail
cd "$(dirname "$0")/.."
. packaging/packages.sh
InstallMissing "${buildPackages[@]}" "${testPackages[@]}" clang-tidy cppcheck libqt6svg6-dev
cmake --preset dev -DSPARROWFIELD_ARTWORK=ON >/dev/null
# The build generates further sources, by Qt's tools.
cmake --build --preset dev
files=("$@")
[ ${#files[@]} -gt 0 ] || mapfile -t files < <(git ls-files 'src/*.cpp' 'artwork/*.cpp')
echo "== clang-tidy, ${#files[@]} files"
status=0
printf '%s\n' "${files[@]}" | xargs -P "$(nproc)" -n 4 clang-tidy -p build/dev --quiet 2> >(grep -v 'warnings\? generated' >&2) || status=1
echo "== cppcheck"
mkdir -p build/cppcheck
cppcheck --project=build/dev/compile_commands.json --cppcheck-build-dir=build/cppcheck --file-filter='*/src/*' -j "$(nproc)" \
    --enable=warning,performance,portability --std=c++20 --library=qt --inline-suppr --quiet --error-exitcode=1 || status=1
exit $status
