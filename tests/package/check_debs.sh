#!/bin/sh
# Checks the Debian packages `make package` built, before anything installs
# them: their control fields and dependencies, which files each holds, and
# lintian (any error fails; warnings are printed).
#
#   sh check_debs.sh <directory with the .deb and .tar.gz files>
set -eu
dir=$1
fail() { echo "FAIL: $*"; exit 1; }

set -- "$dir"/liborvane*-dev_*.deb
dev=$1
[ -f "$dev" ] || fail "no development package in $dir"
case $(basename "$dev") in
    liborvane6-dev_*) qt=6; lib_pkg=liborvane6-1; lib_name=libOrvane6; qt_dev=qt6-base-dev; qt_widgets=libqt6widgets6 ;;
    *) qt=5; lib_pkg=liborvane1; lib_name=libOrvane; qt_dev=qtbase5-dev; qt_widgets=libqt5widgets5 ;;
esac
set -- "$dir/${lib_pkg}"_*.deb
lib=$1
[ -f "$lib" ] || fail "no $lib_pkg package in $dir"
set -- "$dir"/*.tar.gz
[ -f "$1" ] || fail "no .tar.gz in $dir"
tarball=$1

field() { dpkg-deb --field "$1" "$2"; }
version=$(field "$lib" Version)

# Control fields.
[ "$(field "$lib" Package)" = "$lib_pkg" ] || fail "$lib is not $lib_pkg"
[ "$(field "$lib" Section)" = libs ] || fail "$lib_pkg: section $(field "$lib" Section)"
[ "$(field "$dev" Section)" = libdevel ] || fail "dev: section $(field "$dev" Section)"
[ "$(field "$dev" Version)" = "$version" ] || fail "the two packages' versions differ"
for deb in "$lib" "$dev"; do
    for f in Maintainer Description Architecture Priority Homepage; do
        [ -n "$(field "$deb" $f)" ] || fail "$(basename "$deb"): no $f"
    done
done
lib_depends=$(field "$lib" Depends)
dev_depends=$(field "$dev" Depends)
echo "$lib_pkg $version Depends: $lib_depends"
echo "$(field "$dev" Package) Depends: $dev_depends"
for d in "$qt_widgets" libc6 libstdc++6; do
    printf '%s\n' "$lib_depends" | tr ',' '\n' | grep -q "^ *$d " || fail "$lib_pkg does not depend on $d"
done
printf '%s\n' "$dev_depends" | tr ',' '\n' | grep -qx " *$lib_pkg (= $version)" \
    || fail "the development package does not depend on $lib_pkg (= $version)"
printf '%s\n' "$dev_depends" | tr ',' '\n' | grep -qx " *$qt_dev" \
    || fail "the development package does not depend on $qt_dev"
dpkg-deb --ctrl-tarfile "$lib" | tar -t | grep -q '^./shlibs$' || fail "$lib_pkg has no shlibs file"
dpkg-deb --ctrl-tarfile "$lib" | tar -t | grep -q '^./triggers$' || fail "$lib_pkg has no ldconfig trigger"

# Files: the runtime package holds the versioned library only; the rest is
# the development package's.
lib_files=$(dpkg-deb --fsys-tarfile "$lib" | tar -t | grep -v '/$')
dev_files=$(dpkg-deb --fsys-tarfile "$dev" | tar -t | grep -v '/$')
printf '%s\n' "$lib_files" | grep -Eq "^\./usr/lib/[^/]+/$lib_name\.so\.1$" || fail "$lib_pkg has no $lib_name.so.1"
unexpected=$(printf '%s\n' "$lib_files" | grep -Ev "/$lib_name\.so\.1(\.[0-9.]+)?$|^\./usr/share/doc/$lib_pkg/(copyright|changelog\.Debian\.gz)$" || true)
[ -z "$unexpected" ] || fail "$lib_pkg holds more than the library: $unexpected"
for want in "/$lib_name\.so$" '/include/.*Orvane/Orvane\.h$' '/cmake/Orvane6?/Orvane6?Config\.cmake$' \
    "/qt$qt/mkspecs/modules/qt_Orvane6?\.pri$" '/pkgconfig/Orvane6?\.pc$'; do
    printf '%s\n' "$dev_files" | grep -Eq "$want" || fail "the development package has no file matching $want"
done
if printf '%s\n' "$dev_files" | grep -Eq '\.so\.1'; then
    fail "the development package holds the runtime library"
fi
tar -tzf "$tarball" | grep -Eq "/$lib_name\.so\.1$" || fail "$tarball has no library"
tar -tzf "$tarball" | grep -Eq '/include/.*Orvane/Orvane\.h$' || fail "$tarball has no headers"

# lintian: errors fail, the rest is shown.
if command -v lintian >/dev/null 2>&1; then
    report=$(lintian --tag-display-limit 0 "$lib" "$dev" 2>&1 || true)
    [ -z "$report" ] || printf '%s\n' "$report"
    if printf '%s\n' "$report" | grep -q '^E: '; then
        fail "lintian reports errors"
    fi
else
    fail "lintian is not installed"
fi
echo "the packages $(basename "$lib") and $(basename "$dev") and $(basename "$tarball") look right"
