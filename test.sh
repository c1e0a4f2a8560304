#!/usr/bin/env bash
# Prepares a Debian 12 machine, builds everything and runs all tests, without a display. The last
# line is "N passed, N failed", followed by ", N skipped" if tests were skipped. The exit status is
# 0 only if no test failed.
#
#   ./test.sh              preset dev
#   ./test.sh --sanitize   preset asan: with the address and undefined behaviour sanitizers
set -uo pipefail
cd "$(dirname "$0")" || exit 1
. packaging/packages.sh

Say() { printf '\n== %s\n' "$*"; }
# A step that fails before the tests counts as one failure; no test has run then.
Fail() {
    echo "$*; no test was run."
    echo "0 passed, 1 failed"
    exit 1
}

case "$*" in
    "") preset=dev ;;
    --sanitize) preset=asan ;;
    *) Fail "Unknown arguments: $*" ;;
esac

Say "Packages"
InstallMissing "${buildPackages[@]}" "${runPackages[@]}" "${discPackages[@]}" "${testPackages[@]}" \
    "${walkPackages[@]}" || Fail "Packages are missing"

Say "Building, preset $preset"
export NINJA_STATUS="[%f of %t, %es] "
cmake --preset $preset >/dev/null || Fail "The build couldn't be configured"
cmake --build --preset $preset || Fail "The build failed"

Say "Tests"
report=$PWD/build/$preset/tests.xml
rm -f "$report"
ctest --preset $preset -j "$(nproc)" --timeout 300 --output-junit "$report"
status=$?
[ -s "$report" ] || Fail "The tests left no report"
python3 - "$report" "$status" <<'PYTHON' || exit 1
import sys
import xml.etree.ElementTree

counts = dict.fromkeys(("run", "fail", "notrun", "disabled"), 0)
for case in xml.etree.ElementTree.parse(sys.argv[1]).iter("testcase"):
    skipped = case.find("skipped")
    # A missing test program is also reported as not run, but it isn't a deliberate skip.
    wanted = skipped is not None and skipped.get("message", "").startswith("SKIP_")
    counts["fail" if case.get("status") == "notrun" and not wanted else case.get("status")] += 1
skips = counts["notrun"] + counts["disabled"]
failed = counts["fail"]
if failed == 0 and (sys.argv[2] != "0" or counts["run"] == 0):
    print("ctest ended with status", sys.argv[2], "after", counts["run"], "tests")
    failed = 1
print(f"{counts['run']} passed, {failed} failed" + (f", {skips} skipped" if skips else ""))
sys.exit(failed > 0)
PYTHON
