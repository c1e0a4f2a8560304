#!/usr/bin/env bash
# Runs all tests and reports the line coverage of src/, in total and by folder, and the files with
# the lowest coverage.
#
#   tools/check_coverage.sh [LEAST]
#
# Fails if less than LEAST percent of the lines are covered; the default is 90.
set -euo pipefail
cd "$(dirname "$0")/.."
. packaging/packages.sh
InstallMissing "${buildPackages[@]}" "${runPackages[@]}" "${discPackages[@]}" "${testPackages[@]}" "${walkPackages[@]}" gcovr
cmake --preset coverage >/dev/null
cmake --build --preset coverage
find build/coverage -name '*.gcda' -delete
ctest --preset coverage -j "$(nproc)"
gcovr --root . --filter 'src/' --json-summary build/coverage/summary.json build/coverage
python3 - build/coverage/summary.json "${1:-90}" <<'PYTHON'
import collections
import json
import re
import sys

with open(sys.argv[1], encoding="utf-8") as report:
    report = json.load(report)
folders = collections.defaultdict(lambda: [0, 0])
for file in report["files"]:
    # Headers have paths below the build's include folders.
    file["filename"] = re.sub(r"^build/coverage/include/\w+/", "src/", file["filename"])
    folder = folders[file["filename"].rsplit("/", 1)[0]]
    folder[0] += file["line_covered"]
    folder[1] += file["line_total"]
for folder, (ran, total) in sorted(folders.items()):
    print(f"{folder:24} {100 * ran / total:5.1f} % of {total}")
print("the files that ran least:")
for file in sorted(report["files"], key=lambda f: f["line_percent"])[:12]:
    print(f"  {file['filename']:44} {file['line_percent']:5.1f} % of {file['line_total']}")
print(f"{report['line_percent']:.1f} % of {report['line_total']} lines in all")
sys.exit(report["line_percent"] < float(sys.argv[2]))
PYTHON
