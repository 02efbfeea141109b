#!/bin/sh
# Compares the names in a Windows DLL's export table with the names the
# Linux build of the same library exports: both use the same C++ name
# mangling, so the same API gives the same names. Types whose size differs
# between the two systems (long, 64-bit integers) would show here as a
# difference, and so would a class or function missing its export macro.
# Two differences belong to the platforms, not to the API: an exported class
# on Windows exports moc's private qt_static_metacall, which Qt hides on
# Linux, and typeinfo names (_ZTS) are exported on Linux only. Thunks (the
# this-adjusting entries of virtual functions) are emitted where each
# compiler sees fit and are left out on both sides.
#
#   sh compare_dll_exports.sh <Orvane.dll> <libOrvane.so>
set -eu
dll=$1
so=$2
[ -f "$dll" ] || { echo "no DLL at $dll"; exit 1; }
[ -f "$so" ] || { echo "no Linux library at '$so' (configure with ORVANE_LINUX_LIBRARY)"; exit 1; }
OBJDUMP=${MINGW_OBJDUMP:-x86_64-w64-mingw32-objdump}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# The export table's name rows: "[ordinal] name" after "[Ordinal/Name Pointer] Table".
$OBJDUMP -p "$dll" | awk '/\[Ordinal\/Name Pointer\] Table/ { on = 1; next }
    on && /^\t\[ *[0-9]+\] / { print $NF; next }
    on && !/^\t\[/ { on = 0 }' \
    | grep -Ev '18qt_static_metacallEP7QObjectN11QMetaObject4CallEiPPv$|^_ZT[hv]' | sort -u > "$work/dll"
# The Linux library's own definitions, without the linker's and the weak
# copies of other libraries' inline functions.
nm -D --defined-only "$so" | awk '$2 != "A" && !($2 ~ /^[WVu]$/ && $3 !~ /Orvane/) { print $3 }' \
    | grep -Ev '^_(init|fini|edata|end)$|^__bss_start$|^_ZTS|^_ZT[hv]' | sort -u > "$work/so"

[ -s "$work/dll" ] || { echo "no export table in $dll"; exit 1; }
if ! diff -u "$work/so" "$work/dll" > "$work/diff"; then
    echo "the DLL's exports differ from the Linux library's (- Linux only, + DLL only):"
    grep '^[-+][^-+]' "$work/diff" | while read -r line; do
        printf '%s   %s\n' "$line" "$(printf '%s' "${line#?}" | c++filt)"
    done
    exit 1
fi
echo "$(wc -l < "$work/dll") exported names, the same as the Linux library's"
