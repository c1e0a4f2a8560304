#!/usr/bin/env bash
# Looks for mistakes without running anything: clang-tidy with the checks of .clang-tidy, cppcheck with its warnings about errors, speed and
# portability. Takes about half an hour the first time. Ends with status 1 if either finds something.
#   tools/check_code.sh [FILE...]      the sources for clang-tidy; left out: all of src/ and artwork/
set -euo pipefail
cd "$(dirname "$0")/.."
. packaging/packages.sh
InstallMissing "${buildPackages[@]}" "${testPackages[@]}" clang-tidy cppcheck libqt6svg6-dev
cmake --preset dev -DSPARROWFIELD_ARTWORK=ON >/dev/null
# The resources that Qt's tools write are sources too.
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
