#!/usr/bin/env bash
# Installs what is missing, builds Vorlix and runs all tests, windows and dialogs included, without a display.
# Words given to it go to ctest: ./test.sh -R astro
set -euo pipefail
cd "$(dirname "$0")"
. tools/packages.sh

need_packages "${build_packages[@]}" desktop-file-utils appstream groff-base \
    python3-jsonschema python3-icalendar
build_preset release
ctest --preset release -j "$(nproc)" "$@"
