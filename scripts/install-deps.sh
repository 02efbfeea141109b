#!/bin/sh
# Installs the Debian packages the build and the tests need, when missing:
# with apt-get as root, else through sudo, else it prints the command to run.
set -eu

packages="
cmake
make
g++
git
binutils
pkg-config
qtbase5-dev
qtbase5-private-dev
qttools5-dev
qttools5-dev-tools
fonts-dejavu-core
libssl-dev
$*
"

missing=""
for p in $packages; do
    if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed"; then
        missing="$missing $p"
    fi
done
[ -z "$missing" ] && exit 0

echo "Installing missing packages:$missing"
if [ "$(id -u)" -eq 0 ]; then
    apt-get -o DPkg::Lock::Timeout=900 update -qq
    DEBIAN_FRONTEND=noninteractive apt-get -o DPkg::Lock::Timeout=900 install -y -qq --no-install-recommends $missing
elif command -v sudo >/dev/null 2>&1 && sudo -n true 2>/dev/null; then
    sudo apt-get -o DPkg::Lock::Timeout=900 update -qq
    sudo DEBIAN_FRONTEND=noninteractive apt-get -o DPkg::Lock::Timeout=900 install -y -qq --no-install-recommends $missing
else
    echo "Please install them first:"
    echo "  sudo apt-get install$missing"
    exit 1
fi
