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
# Wine does not hand QT_* variables to a Windows process (a Linux Qt's
# settings must not leak into a Windows one); it hands on WINEQT_* under the
# QT_* name. The test's own settings (QT_SCALE_FACTOR, QT_QPA_PLATFORM, ...)
# are meant for the Windows program, so they go that way.
for name in $(env | sed -n 's/^\(QT_[A-Za-z0-9_]*\)=.*/\1/p'); do
    eval "export WINE$name=\"\$$name\""
done
# The program's own standard streams go to a file, not to CTest's pipe: the
# wine processes it may start (the wineserver, the desktop, services) keep
# what they inherit open after it ends, and CTest would wait for them.
case $(basename "$exe") in
tst_*) wine "$exe" -o "$(winpath "$logs/test.txt"),txt" "$@" > "$logs/out.txt" 2>&1 < /dev/null ;;
*) wine "$exe" "$@" > "$logs/out.txt" 2>&1 < /dev/null ;;
esac
status=$?
cat "$logs/platform.txt" "$logs/test.txt" "$logs/out.txt" 2>/dev/null
exit $status
