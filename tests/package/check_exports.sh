#!/bin/sh
# Lists every symbol the shared library exports and fails on any that is not
# part of the library's API.
set -eu
lib=$1
# Weak definitions of other libraries' inline functions (Qt's, in an
# unoptimised build) are theirs, not ours, and are left out; so are weak
# instantiations of the standard library's templates over our types (Qt 6's
# QMap is a std::map).
symbols=$(nm -D --defined-only -C "$lib" \
    | awk '$2 != "A" && !($2 ~ /^[WVu]$/ && ($0 !~ /Orvane/ || $3 ~ /^std::/)) { $1 = ""; $2 = ""; sub(/^  /, ""); print }')
[ -n "$symbols" ] || { echo "no exported symbols in $lib"; exit 1; }
unexpected=$(printf '%s\n' "$symbols" | grep -Ev \
  -e '^Orvane::' \
  -e '^(vtable|typeinfo|typeinfo name|VTT) for Orvane::' \
  -e '^(non-virtual|virtual) thunk to Orvane::' \
  -e '^(getResourcesPath|initInternalResources|q(Init|Cleanup)Resources_Orvane(Resources|Languages))\(\)$' \
  -e '^gitVersion$' \
  -e '^_(init|fini|edata|end)$' -e '^__bss_start$' \
  -e '^__odr_asan[._]' || true)
count=$(printf '%s\n' "$symbols" | wc -l)
if [ -n "$unexpected" ]; then
    echo "symbols exported beyond the API:"
    printf '%s\n' "$unexpected"
    exit 1
fi
echo "$count exported symbols, all in the API"
