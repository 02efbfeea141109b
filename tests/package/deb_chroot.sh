#!/bin/sh
# Installs the two Debian packages into a clean Debian 12 root as a new user
# of the library would: apt resolves their dependencies from Debian's
# archive; then an ordinary user of that root builds and runs
# examples/consumer (CMake) and tests/package/host (its qmake project and its
# pkg-config Makefile) against the installed packages, offscreen.
#
#   sh deb_chroot.sh <directory with the two .debs of `make package`> <source tree>
#
# Needs root (chroot and mounts). The clean root comes from
# `debootstrap --variant=minbase bookworm` from Debian's mirror. To keep a
# run cheap, two things are kept outside the repository, in
# $ORVANE_CHROOT_CACHE (default /var/cache/orvane):
#   bookworm-minbase-<day>.tar   the bootstrapped root with its package
#                                lists, made again on a new day;
#   apt-archives/                the .debs apt downloaded, so that a second
#                                run installs the same packages without
#                                fetching them again.
# Every run unpacks a fresh root from the tarball into a temporary folder and
# deletes it at the end; the mounts in it are undone on any exit.
set -eu

debs=$(cd "$1" && pwd)
src=$(cd "$2" && pwd)
mirror=${DEBIAN_MIRROR:-http://deb.debian.org/debian}
cache=${ORVANE_CHROOT_CACHE:-/var/cache/orvane}
start=$(date +%s)

[ "$(id -u)" -eq 0 ] || { echo "deb_chroot.sh needs root (chroot, mount)"; exit 1; }
# The Qt 5 packages (liborvane1, liborvane-dev) or the Qt 6 ones
# (liborvane6-1, liborvane6-dev), whichever the folder holds.
if [ -n "$(ls "$debs"/liborvane6-dev_*.deb 2>/dev/null)" ]; then
    qt=6; package=Orvane6; lib_pkg=liborvane6-1; dev_pkg=liborvane6-dev; qmake=qmake6
else
    qt=5; package=Orvane; lib_pkg=liborvane1; dev_pkg=liborvane-dev; qmake=qmake
fi
set -- "$debs/${lib_pkg}"_*.deb
lib=$1
set -- "$debs/${dev_pkg}"_*.deb
dev=$1
[ -f "$lib" ] && [ -f "$dev" ] || { echo "no $lib_pkg/$dev_pkg packages in $debs"; exit 1; }

mkdir -p "$cache/apt-archives/partial"
base="$cache/bookworm-minbase-$(date -u +%Y%m%d).tar"
if [ ! -f "$base" ]; then
    echo "bootstrapping a minimal Debian 12 root (once a day) into $base"
    boot=$(mktemp -d /var/tmp/orvane-bootstrap.XXXXXX)
    chmod 0755 "$boot"
    if ! debootstrap --variant=minbase bookworm "$boot" "$mirror" > "$boot.log" 2>&1; then
        tail -n 30 "$boot.log"
        rm -rf "$boot" "$boot.log"
        exit 1
    fi
    # The package lists are part of the cached root; apt-get update at each
    # run refreshes them.
    printf 'deb %s bookworm main\ndeb %s bookworm-updates main\n' "$mirror" "$mirror" > "$boot/etc/apt/sources.list"
    rm -rf "$boot/var/cache/apt/archives"/*.deb
    tar -C "$boot" -cf "$base.part" .
    mv "$base.part" "$base"
    rm -rf "$boot" "$boot.log"
    # Roots of earlier days are no longer used.
    find "$cache" -maxdepth 1 -name 'bookworm-minbase-*.tar' ! -path "$base" -delete
fi

# The root lives in memory (about 1 GiB once everything is installed): it
# unpacks and installs fast and is gone with its unmounting.
root=$(mktemp -d /var/tmp/orvane-root.XXXXXX)
mounts=""
cleanup() {
    # Anything still running inside the root was started by this run (a
    # daemon a package's script left behind): stopped by its process id.
    for p in /proc/[0-9]*; do
        if [ "$(readlink "$p/root" 2>/dev/null)" = "$root" ]; then
            echo "stopping ${p#/proc/} ($(cat "$p/comm" 2>/dev/null)), left running in the root"
            kill -KILL "${p#/proc/}" 2>/dev/null || true
        fi
    done
    for m in $mounts; do
        umount -l "$m" 2>/dev/null || true
    done
    # Only delete the root's folder when nothing is mounted there any more.
    if ! grep -q " $root[/ ]" /proc/mounts; then
        rm -rf "$root"
    else
        echo "left $root in place: still mounted"
    fi
}
trap cleanup EXIT
# The long steps run in the background and are waited for, so that a signal
# is seen at once: the step is stopped by its process id, and cleanup stops
# whatever it started inside the root.
step=""
trap '[ -z "$step" ] || kill "$step" 2>/dev/null; exit 1' INT TERM HUP
run() {
    "$@" &
    step=$!
    wait "$step"
    rc=$?
    step=""
    return $rc
}

mount -t tmpfs -o size=4g,mode=0755 orvane-root "$root" && mounts="$root"
tar -C "$root" -xf "$base"
chmod 0755 "$root"
mount -t proc proc "$root/proc" && mounts="$root/proc $mounts"
mount --bind /dev "$root/dev" && mounts="$root/dev $mounts"
mount --bind "$cache/apt-archives" "$root/var/cache/apt/archives" && mounts="$root/var/cache/apt/archives $mounts"
cp /etc/resolv.conf "$root/etc/resolv.conf"
# No package's script may start a service in the root.
printf '#!/bin/sh\nexit 101\n' > "$root/usr/sbin/policy-rc.d"
chmod 0755 "$root/usr/sbin/policy-rc.d"

mkdir -p "$root/tmp/debs" "$root/tmp/projects"
cp "$lib" "$dev" "$root/tmp/debs/"
cp -r "$src/examples/consumer" "$src/tests/package/host" "$root/tmp/projects/"

in_root() {
    chroot "$root" /usr/bin/env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin HOME=/root LANG=C.UTF-8 \
        DEBIAN_FRONTEND=noninteractive "$@"
}
echo "apt-get install ./$(basename "$lib") ./$(basename "$dev") cmake g++ make pkg-config"
run in_root apt-get -o Acquire::Retries=3 update -qq
# dpkg need not sync a root that is thrown away.
run in_root apt-get install -y -qq --no-install-recommends -o Dpkg::Use-Pty=0 -o Dpkg::Options::=--force-unsafe-io \
    "/tmp/debs/$(basename "$lib")" "/tmp/debs/$(basename "$dev")" cmake g++ make pkg-config > "$root/tmp/apt.log" 2>&1 \
    || { tail -n 40 "$root/tmp/apt.log"; exit 1; }
in_root dpkg-query -W "$lib_pkg" "$dev_pkg"

# An ordinary user of that machine builds the projects.
in_root useradd -m builder
user=$(in_root id -u builder):$(in_root id -g builder)
chown -R "$user" "$root/tmp/projects"
as_user() {
    chroot --userspec="$user" "$root" /usr/bin/env -i PATH=/usr/bin:/bin HOME=/home/builder \
        LANG=C.UTF-8 QT_QPA_PLATFORM=offscreen XDG_RUNTIME_DIR=/tmp/projects "$@"
}
chmod 0700 "$root/tmp/projects"

check() {
    name=$1
    shift
    out=$(as_user "$@" 2>&1) || { echo "$name failed:"; echo "$out"; exit 1; }
    line=$(printf '%s\n' "$out" | tail -n 1)
    case $line in
        "Orvane 1.0.0("*") Qt $qt."*) echo "$name: $line" ;;
        *) echo "$name: unexpected output:"; echo "$out"; exit 1 ;;
    esac
}

run as_user sh -c 'cd /tmp/projects && cmake -S consumer -B consumer-build -DCMAKE_BUILD_TYPE=Release -DORVANE_PACKAGE='"$package"' > consumer.log 2>&1 && cmake --build consumer-build >> consumer.log 2>&1' \
    || { cat "$root/tmp/projects/consumer.log"; exit 1; }
check "CMake consumer" /tmp/projects/consumer-build/orvane-consumer

# qmake finds the module in Qt's own mkspecs folder: no QMAKEPATH.
run as_user sh -c 'mkdir /tmp/projects/qmake-build && cd /tmp/projects/qmake-build && '"$qmake"' ../host/host.pro > ../qmake.log 2>&1 && make >> ../qmake.log 2>&1' \
    || { cat "$root/tmp/projects/qmake.log"; exit 1; }
check "qmake project" /tmp/projects/qmake-build/orvane-qmake-host

# pkg-config finds the .pc file in the system's folder: no PKG_CONFIG_PATH.
run as_user sh -c 'mkdir /tmp/projects/pkgconfig-build && cd /tmp/projects/pkgconfig-build && make -f ../host/pkgconfig.mk ORVANE='"$package"' > ../pkgconfig.log 2>&1' \
    || { cat "$root/tmp/projects/pkgconfig.log"; exit 1; }
check "pkg-config project" /tmp/projects/pkgconfig-build/orvane-pkgconfig-host

echo "the packages install into a clean Debian 12 root and the three projects build and run there ($(( $(date +%s) - start )) s)"
