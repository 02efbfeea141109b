#!/bin/sh
# Runs a cross-built test executable under wine for CTest. Under wine the
# output of these programs does not reach a pipe, so a Qt Test program
# writes its log to a file (-o) and the platform line to another
# (ORVANE_PLATFORM_LOG); both are printed here after it ends, and its exit
# code is passed on.
#
#   sh wine-run.sh <program.exe> [arguments...]
exe=$1
shift
logs=$(mktemp -d)
trap 'rm -rf "$logs"' EXIT
winpath() { printf 'Z:%s' "$1" | tr / '\\'; }
export ORVANE_PLATFORM_LOG="$(winpath "$logs/platform.txt")"
case $(basename "$exe") in
tst_*) wine "$exe" -o "$(winpath "$logs/test.txt"),txt" "$@" ;;
*) wine "$exe" "$@" ;;
esac
status=$?
cat "$logs/platform.txt" "$logs/test.txt" 2>/dev/null
exit $status
