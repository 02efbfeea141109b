#!/bin/sh
# Windows tests, cross-built with mingw-w64 and run under wine, headless, in
# a wine prefix of its own inside the build folder:
#
#   sh tests/windows/run.sh <build folder> [<Qt for Windows: .tar.xz or prefix>] [<Linux libOrvane.so>]
#
# First the library's Qt-free Windows source (src/core/winplatform.cpp) with
# its own test program. Then, given a Qt for Windows, the whole library
# (Orvane.dll), every test, the gallery and examples/consumer built against
# the installed package, and the whole suite run by CTest under wine on the
# "windows" platform plugin; given the Linux library too, the DLL's export
# table is compared with it. Ends with "N passed, M failed".
#
# The first run unpacks Qt and creates the prefix; later runs reuse both.
# WINDOWS_CMAKE_FLAGS adds configure options (e.g. a compiler launcher).
set -eu

started=$(date +%s)
src=$(cd "$(dirname "$0")/../.." && pwd)
here="$src/tests/windows"
mkdir -p "$1"
top=$(cd "$1" && pwd)
qt_input=${2:-}
linux_lib=${3:-}
out="$top/winplatform"
mkdir -p "$out"

CXX=${MINGW_CXX:-x86_64-w64-mingw32-g++-posix}
WINDRES=${MINGW_WINDRES:-x86_64-w64-mingw32-windres}
WINESERVER=${WINESERVER:-/usr/lib/wine/wineserver}
CXXFLAGS="-std=c++17 -O2 -Wall -Wextra -Werror -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast"
# Static runtime: the executables need no DLL beyond Windows' own.
LDFLAGS="-static -static-libgcc -static-libstdc++"

echo "Cross-building the Qt-free Windows source in $out"
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
export WINEPREFIX="$top/wineprefix"
export WINEDEBUG=-all
export WINEDLLOVERRIDES="mscoree,mshtml=;winemenubuilder.exe=d"
if [ ! -f "$WINEPREFIX/system.reg" ]; then
    echo "Creating the wine prefix $WINEPREFIX (first run only)"
    t=$(date +%s)
    wineboot --init > "$top/wineboot.log" 2>&1 || { cat "$top/wineboot.log"; exit 1; }
    # No display: wine's null graphics driver, on which windows still exist.
    wine reg add 'HKCU\Software\Wine\Drivers' /v Graphics /d null /f >> "$top/wineboot.log" 2>&1
    "$WINESERVER" -w
    echo "Wine prefix ready in $(( $(date +%s) - t )) s"
fi
# Stops the wineserver of this prefix (and only it) however the script ends.
trap '"$WINESERVER" -k 2>/dev/null || true' EXIT

passed=0
failed=0
if wine "$out/tst_winplatform.exe"; then passed=$((passed + 1)); else failed=$((failed + 1)); fi

summary() {
    echo "Windows tests: $passed passed, $failed failed"
    echo "Windows stage: $(( $(date +%s) - started )) s"
    [ "$failed" -eq 0 ]
}
if [ -z "$qt_input" ]; then
    summary
    exit
fi

# The Qt for Windows: a prefix as given, or the tarball unpacked once here.
if [ -d "$qt_input" ]; then
    qt=$(cd "$qt_input" && pwd)
else
    qt="$top/qt"
    stamp="$qt/.unpacked-from"
    want="$(cd "$(dirname "$qt_input")" && pwd)/$(basename "$qt_input") $(stat -c %s "$qt_input")"
    if [ ! -f "$stamp" ] || [ "$(cat "$stamp")" != "$want" ]; then
        echo "Unpacking $qt_input"
        rm -rf "$qt" && mkdir -p "$qt"
        tar -xJf "$qt_input" -C "$qt" --strip-components=1
        echo "$want" > "$stamp"
    fi
fi
[ -f "$qt/lib/cmake/Qt5/Qt5Config.cmake" ] || { echo "no Qt 5 CMake package in $qt"; exit 1; }

# The DLLs a program needs beside it: Qt's, its platform plugins, and the
# compiler's runtime (posix thread model).
runtime="$top/runtime"
mkdir -p "$runtime/platforms"
cp -u "$qt"/bin/*.dll "$runtime/"
cp -u "$qt"/plugins/platforms/*.dll "$runtime/platforms/"
cp -u /usr/lib/gcc/x86_64-w64-mingw32/*-posix/libstdc++-6.dll \
      /usr/lib/gcc/x86_64-w64-mingw32/*-posix/libgcc_s_seh-1.dll \
      /usr/x86_64-w64-mingw32/lib/libwinpthread-1.dll "$runtime/"

build="$top/build"
bin="$build/bin"
echo "Cross-building the library, its tests and the gallery in $build"
# -O1 without debug information and one precompiled header of Qt for all
# test programs keep this stage short; every executable lands in one
# folder, beside the DLLs it needs.
cmake -S "$src" -B "$build" -DCMAKE_TOOLCHAIN_FILE="$src/cmake/mingw64-toolchain.cmake" \
    -DCMAKE_PREFIX_PATH="$qt" -DCMAKE_BUILD_TYPE=Release "-DCMAKE_CXX_FLAGS_RELEASE=-O1 -DNDEBUG" -DORVANE_TEST_PCH=ON \
    -DCMAKE_RUNTIME_OUTPUT_DIRECTORY="$bin" "-DORVANE_WINE=sh;$here/wine-run.sh" \
    -DORVANE_WINDOWS_RUNTIME="$runtime" -DORVANE_LINUX_LIBRARY="$linux_lib" \
    ${WINDOWS_CMAKE_FLAGS:-} > "$top/configure.log" || { cat "$top/configure.log"; exit 1; }
t=$(date +%s)
cmake --build "$build" --parallel "${JOBS:-2}"
echo "Cross-build: $(( $(date +%s) - t )) s"
mkdir -p "$bin"
cp -ru "$runtime"/. "$bin/"

echo "Running the suite under wine"
t=$(date +%s)
# One wineserver for the whole suite, started here with nothing of CTest's
# open, so that no test's output pipe is held by it.
"$WINESERVER" -w
"$WINESERVER" -p < /dev/null > /dev/null 2>&1 || true
wineboot < /dev/null > /dev/null 2>&1 || true
# Programs outside bin/ (a test with a folder of its own) find the DLLs and
# the platform plugins there too.
winpath() { printf 'Z:%s' "$1" | tr / '\\'; }
export WINEPATH="$(winpath "$bin")"
export QT_PLUGIN_PATH="$(winpath "$bin")"
ctest --test-dir "$build" --output-on-failure --parallel "${JOBS:-2}" > "$top/ctest.log" 2>&1 || true
cat "$top/ctest.log"
echo "Suite under wine: $(( $(date +%s) - t )) s"
# Which plugin each test loaded, from its own output.
awk '/^[0-9]+\/[0-9]+ Testing: /{name=$3} /^Platform plugin: /{sub(/^Platform plugin: /,""); print "  " name ": " $0}' \
    "$build/Testing/Temporary/LastTest.log"
suite_passed=$(grep -Ec '^ *[0-9]+/[0-9]+ Test +#[0-9]+: .* Passed' "$top/ctest.log" || true)
suite_failed=$(grep -Ec '^ *[0-9]+/[0-9]+ Test +#[0-9]+: .*(\*\*\*|Not Run|Exception|Timeout)' "$top/ctest.log" || true)
passed=$((passed + suite_passed))
failed=$((failed + suite_failed))
summary
