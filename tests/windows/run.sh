#!/bin/sh
# Cross-builds the library's Windows-only source (src/core/winplatform.cpp)
# and its test program with mingw-w64, then runs the test under wine,
# headless, in a wine prefix of its own inside the build folder.
#
#   sh tests/windows/run.sh <build folder>
#
# The first run creates the prefix, which takes a while; later runs reuse it.
set -eu

src=$(cd "$(dirname "$0")/../.." && pwd)
here="$src/tests/windows"
mkdir -p "$1"
out=$(cd "$1" && pwd)

CXX=${MINGW_CXX:-x86_64-w64-mingw32-g++}
WINDRES=${MINGW_WINDRES:-x86_64-w64-mingw32-windres}
WINESERVER=${WINESERVER:-/usr/lib/wine/wineserver}
CXXFLAGS="-std=c++17 -O2 -Wall -Wextra -Werror -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast"
# Static runtime: the executables need no DLL beyond Windows' own.
LDFLAGS="-static -static-libgcc -static-libstdc++"

echo "Cross-building in $out"
$CXX $CXXFLAGS -c "$src/src/core/winplatform.cpp" -o "$out/winplatform.o"
$CXX $CXXFLAGS -I"$src/src/core" -c "$here/tst_winplatform.cpp" -o "$out/tst_winplatform.o"
$WINDRES -DFILE_FIELDS=3,1,0,25 -DFILE_TEXT=3.1.0.25 "$here/version.rc" -O coff -o "$out/version-3.1.0.25.res.o"
$WINDRES -DFILE_FIELDS=2,0,7,0 -DFILE_TEXT=2.0.7.0 "$here/version.rc" -O coff -o "$out/version-2.0.7.0.res.o"
$WINDRES "$here/nofixedrecord.rc" -O coff -o "$out/no-fixed-record.res.o"
link() {
    exe=$1
    shift
    $CXX $LDFLAGS -o "$out/$exe" "$out/tst_winplatform.o" "$out/winplatform.o" "$@" -lversion
}
link tst_winplatform.exe "$out/version-3.1.0.25.res.o"
link version-2.0.7.0.exe "$out/version-2.0.7.0.res.o"
link no-fixed-record.exe "$out/no-fixed-record.res.o"
link no-version.exe
echo "plain text" > "$out/not-a-program.txt"

# Headless and quiet: no display, no debug channels, no Mono or Gecko
# installers, no desktop menu entries.
unset DISPLAY WAYLAND_DISPLAY
export WINEPREFIX="$out/wineprefix"
export WINEDEBUG=-all
export WINEDLLOVERRIDES="mscoree,mshtml=;winemenubuilder.exe=d"
if [ ! -f "$WINEPREFIX/system.reg" ]; then
    echo "Creating the wine prefix $WINEPREFIX (first run only)"
    start=$(date +%s)
    wineboot --init > "$out/wineboot.log" 2>&1 || { cat "$out/wineboot.log"; exit 1; }
    "$WINESERVER" -w
    echo "Wine prefix ready in $(( $(date +%s) - start )) s"
fi

status=0
wine "$out/tst_winplatform.exe" || status=$?
"$WINESERVER" -w
exit $status
