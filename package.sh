#!/usr/bin/env bash
# Installs what is missing, builds Vorlix and packs it for the Debian release of this machine.
set -euo pipefail
cd "$(dirname "$0")"
. tools/packages.sh

# Without dpkg-dev the package would be made all the same, but would not say which libraries it needs.
need_packages "${build_packages[@]}" dpkg-dev file
build_targets=(vorlix)
build_preset release
umask 022 # the folders of the package are for everybody
cpack --config build/CPackConfig.cmake -B build
echo "To install it: sudo apt install ./build/vorlix_*.deb"
