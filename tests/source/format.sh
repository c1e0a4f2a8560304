#!/usr/bin/env bash
# Checks the layout of all sources: C++ against .clang-format and its limit of 100 columns, Python
# against black, shell scripts against shellcheck. To fix the layout, run it with --write.
#
#   format.sh [--write]
set -uo pipefail
cd "$(dirname "$0")/../.." || exit 1

mapfile -t cpp < <(find artwork bench fuzz src tests tools -name '*.cpp' -o -name '*.h' | sort)
mapfile -t python < <(find artwork packaging tests tools -name '*.py' | sort)
mapfile -t shell < <(find artwork packaging tests tools .ci ./*.sh -name '*.sh' -o -path .ci/run | sort)
[ ${#cpp[@]} -gt 0 ] && [ ${#python[@]} -gt 0 ] && [ ${#shell[@]} -gt 0 ] || exit 1

black=(black --quiet --line-length 100 --skip-magic-trailing-comma --target-version py311)
if [ "${1:-}" = --write ]; then
    printf '%s\0' "${cpp[@]}" | xargs -0 -n 32 -P "$(nproc)" clang-format -i
    "${black[@]}" "${python[@]}"
fi

status=0
printf '%s\0' "${cpp[@]}" | xargs -0 -n 32 -P "$(nproc)" clang-format --dry-run -Werror || status=1
# clang-format never breaks raw string literals and those without blanks.
if LC_ALL=C.UTF-8 grep -nE '^.{101,}' "${cpp[@]}"; then
    echo "These lines are longer than 100 characters."
    status=1
fi
"${black[@]}" --check --diff "${python[@]}" || status=1
shellcheck --external-sources "${shell[@]}" || status=1
echo "${#cpp[@]} C++ files, ${#python[@]} Python files and ${#shell[@]} shell scripts looked at"
exit $status
