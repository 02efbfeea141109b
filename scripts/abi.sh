#!/bin/sh
# The ABI guard of the 1.x series: the shared library's exported interface,
# read by libabigail from its debug information, against a baseline committed
# in abi/. Only types declared in the installed public headers count.
#
#   sh scripts/abi.sh baseline <build dir> <baseline.abi>
#       installs the build tree into <build dir>/abi-stage and writes the
#       installed library's interface to <baseline.abi> (abidw);
#   sh scripts/abi.sh check <build dir> <baseline.abi>
#       installs the build tree the same way and compares its library with
#       the baseline;
#   sh scripts/abi.sh compare <baseline.abi> <library> <headers dir>
#       compares any library with the baseline.
#
# compare passes (exit 0) when the library keeps every exported function and
# variable of the baseline with the same types and layouts; additions are
# allowed. Anything else (a removed or changed symbol, a changed class size,
# field offset or vtable) fails with abidiff's report.
set -eu

# Installs <build> into <build>/abi-stage; sets lib and headers.
stage() {
    build=$1
    stage_dir=$build/abi-stage
    rm -rf "$stage_dir"
    cmake --install "$build" --prefix "$stage_dir" >/dev/null
    lib=$(find "$stage_dir" -name 'libOrvane.so.1.*' -type f | head -n 1)
    headers=$(dirname "$(find "$stage_dir" -path '*/Orvane/orvane_export.h' | head -n 1)")
    [ -n "$lib" ] && [ -f "$headers/orvane_export.h" ] || {
        echo "abi: no installed libOrvane.so.1 and public headers in $stage_dir"; exit 2; }
}

compare() {
    baseline=$1 lib=$2 headers=$3
    [ -f "$baseline" ] || { echo "abi: no baseline $baseline (make abi-baseline writes it)"; exit 2; }
    # The committed baseline is kept compressed (the dump is 2 MB of XML that
    # compresses twenty-fold); abidiff reads the plain dump.
    name=$baseline
    case $baseline in
    *.xz)
        plain=$(mktemp)
        trap 'rm -f "$plain"' EXIT
        xz -dc "$baseline" >"$plain"
        baseline=$plain
        ;;
    esac
    report=$(mktemp)
    # Additions are not reported, so any change left is one that breaks a
    # host built against the baseline. abidiff's exit status is a bit field:
    # 1 error, 2 usage, 4 change, 8 incompatible change.
    rc=0
    abidiff --no-added-syms --drop-private-types --headers-dir2 "$headers" \
        "$baseline" "$lib" >"$report" 2>&1 || rc=$?
    if [ "$rc" -ne 0 ]; then
        cat "$report"
        rm -f "$report"
        if [ $((rc & 3)) -ne 0 ]; then
            echo "abi: abidiff failed (exit status $rc)"
            return 2
        else
            echo "abi: $lib breaks the ABI of $name (abidiff exit status $rc)"
        fi
        return 1
    fi
    rm -f "$report"
    # What was added, from the exported symbol tables.
    old_syms=$(mktemp)
    grep -o "<elf-symbol name='[^']*'" "$baseline" | sed "s/.*name='//; s/'\$//" | sort -u >"$old_syms"
    added=$(nm -D --defined-only "$lib" | awk 'NF == 3 && $2 != "A" && $3 !~ /^(_init|_fini|_edata|_end|__bss_start)$/ { print $3 }' | sort -u \
        | comm -13 "$old_syms" - | c++filt)
    rm -f "$old_syms"
    if [ -n "$added" ]; then
        echo "abi: added since the baseline (allowed):"
        printf '%s\n' "$added" | sed 's/^/  /'
    fi
    echo "abi: $lib keeps the ABI of $name"
}

case ${1:-} in
baseline)
    stage "$2"
    # The source locations stay in the dump: abidiff tells the public
    # headers' types from the others by them (without them a changed public
    # class passes, as tests/abi/guard_test.sh shows).
    abidw --headers-dir "$headers" --drop-private-types --no-corpus-path --no-comp-dir-path \
        --out-file "$3.plain" "$lib"
    echo "abi: wrote $3 from $lib ($(grep -c '<elf-symbol ' "$3.plain") exported symbols)"
    xz -9 -c "$3.plain" >"$3"
    rm -f "$3.plain"
    ;;
check)
    stage "$2"
    compare "$3" "$lib" "$headers"
    ;;
compare)
    compare "$2" "$3" "$4"
    ;;
*)
    echo "usage: sh scripts/abi.sh baseline|check <build dir> <baseline.abi>"
    echo "       sh scripts/abi.sh compare <baseline.abi> <library> <headers dir>"
    exit 2
    ;;
esac
