#!/usr/bin/env bash
# Installs what is missing, builds Vorlix and starts it. Without a display it starts under a virtual one, walks once
# through the main job and leaves pictures of the window in ./pictures.
set -euo pipefail
cd "$(dirname "$0")"
. tools/packages.sh

need_packages "${build_packages[@]}" ca-certificates # element files by https
build_targets=(vorlix vorlix_tour) # the tests would take three times as long
build_preset release

if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
    [ -n "${DISPLAY:-}" ] || need_packages qt6-wayland
    exec build/vorlix "$@"
fi

need_packages xvfb xauth
echo "No display: a tour of the program under a virtual one."
xvfb-run --auto-servernum --server-args="-screen 0 1280x1024x24" build/vorlix_tour pictures
echo "Pictures of the window are in $(pwd)/pictures:"
ls pictures
