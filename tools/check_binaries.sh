#!/usr/bin/env bash
# Checks that programs were built as a release requires: position-independent, with read-only
# relocations, stack protectors and checked library calls, and without symbols.
#   tools/check_binaries.sh [--with-symbols] PROGRAM...
set -euo pipefail
withSymbols=
[ "${1:-}" != --with-symbols ] || { withSymbols=1; shift; }
[ $# -gt 0 ] || { echo "usage: $0 [--with-symbols] PROGRAM..." >&2; exit 2; }
faults=0 hasCheckedCalls='' hasProbes=''
Lacks() { # PROGRAM WHAT
    echo "$1: lacks $2" >&2
    faults=1
}
for program in "$@"; do
    head=$(readelf -hlWd "$program")
    symbols=$(readelf --dyn-syms -W "$program")
    code=$(objdump -d --no-show-raw-insn "$program")
    grep -q 'Type: *DYN' <<<"$head" || Lacks "$program" "a position-independent form"
    grep -q GNU_RELRO <<<"$head" || Lacks "$program" "read-only relocations"
    grep -Eq 'BIND_NOW|FLAGS.*NOW' <<<"$head" || Lacks "$program" "addresses resolved at the start"
    grep -Eq 'GNU_STACK.* RW ' <<<"$head" || Lacks "$program" "a stack that can't be executed"
    grep -Eq 'LOAD.* RWE ' <<<"$head" && Lacks "$program" "a border between data and code"
    grep -q __stack_chk_fail <<<"$symbols" || Lacks "$program" "stack protectors"
    grep -Eq '__[a-z]+_chk\b' <<<"$symbols" && hasCheckedCalls=1
    grep -q _ZSt21__glibcxx_assert_fail <<<"$symbols" || Lacks "$program" "checked containers (_GLIBCXX_ASSERTIONS)"
    # shellcheck disable=SC2016 # $0x0 is assembler syntax.
    if grep -q 'Machine: *Advanced Micro Devices X86-64' <<<"$head"; then
        [ "$(grep -c endbr64 <<<"$code")" -gt 100 ] || Lacks "$program" "control-flow protection"
        grep -Eq 'or[ql]? +\$0x0,(0x0)?\(%rsp' <<<"$code" && hasProbes=1
    else
        hasProbes=1
    fi
    [ -n "$withSymbols" ] || ! readelf -SW "$program" | grep -Eq '\.(symtab|debug_info)' || Lacks "$program" "nothing: its symbols weren't stripped"
done
# Not every program has a call that can be checked, or a stack frame of more than a page.
[ -n "$hasCheckedCalls" ] || Lacks "all programs" "checked library calls (_FORTIFY_SOURCE)"
[ -n "$hasProbes" ] || Lacks "all programs" "probes of the stack's next page (-fstack-clash-protection)"
[ $faults -eq 0 ] && echo "$# programs checked"
exit $faults
