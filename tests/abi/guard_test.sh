#!/bin/sh
# The ABI guard's own test: three variants of the library (tests/abi/
# CMakeLists.txt) compared with the baseline by the very check that
# `make check-abi` runs. An added function must pass; a removed exported
# function and a changed class size must fail, with abidiff's report naming
# them. Prints PASS/FAIL per case and exits non-zero on any failure.
#
#   sh tests/abi/guard_test.sh <build dir> <baseline.abi>
set -u
build=$1
baseline=$2
here=$(cd "$(dirname "$0")" && pwd)
abi="$here/../../scripts/abi.sh"
variants=$build/tests/abi
headers=$build/abi-stage/include/Orvane
[ -f "$headers/orvane_export.h" ] || headers=$(dirname "$(find "$build/abi-stage" -path '*/Orvane/orvane_export.h' | head -n 1)")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

if ! grep -q abiGuardProbe "$variants/layout-include/Orvane/dialogskinstyle.h" 2>/dev/null; then
    echo "FAIL layout: the DialogSkinStyle record was not found in dialogskinstyle.h to patch"
    exit 1
fi

# The three comparisons run side by side; each reads a whole library.
run() {
    name=$1 hdrs=$2
    sh "$abi" compare "$baseline" "$variants/abi_variant_$name/libOrvane.so.1.0.0" "$hdrs" >"$work/$name.log" 2>&1
    echo $? >"$work/$name.rc"
}
run added "$headers" &
run removed "$headers" &
run layout "$variants/layout-include/Orvane" &
wait

failed=0
# expect <case> <pass|fail> <text the output must hold>
expect() {
    name=$1 want=$2 text=$3
    rc=$(cat "$work/$name.rc")
    if [ "$want" = pass ]; then ok=$([ "$rc" -eq 0 ] && echo y); else ok=$([ "$rc" -eq 1 ] && echo y); fi
    if [ "$ok" = y ] && grep -q -- "$text" "$work/$name.log"; then
        echo "PASS $name: the guard says $want (exit status $rc) and names $text"
    else
        echo "FAIL $name: wanted $want naming $text, got exit status $rc:"
        sed 's/^/    /' "$work/$name.log"
        failed=$((failed + 1))
    fi
}
expect added pass "Orvane::abiGuardAddedFunction(int)"
expect removed fail "Orvane::smartAppendPath(const QString&, const QString&)"
expect layout fail "DialogSkinStyle"
if [ "$failed" -ne 0 ]; then
    echo "abi guard test: $failed of 3 cases failed"
    exit 1
fi
echo "abi guard test: 3 of 3 cases passed"
