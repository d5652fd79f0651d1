# What the scripts share: packages and builds. To be sourced, in the root of the tree.

# Installs Debian packages, only those that are missing, so that a second run needs no network.
need_packages() {
    local missing=()
    local package
    for package in "$@"; do
        if ! dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'ok installed'; then
            missing+=("$package")
        fi
    done
    [ "${#missing[@]}" -gt 0 ] || return 0

    echo "Installing: ${missing[*]}"
    local as_root=()
    [ "$(id -u)" -eq 0 ] || as_root=(sudo)
    local tool
    for tool in "${as_root[@]}" apt-get; do
        if ! command -v "$tool" >/dev/null; then
            echo "These packages are missing, and there is no $tool to install them: ${missing[*]}" >&2
            return 1
        fi
    done
    "${as_root[@]}" apt-get update || echo "The lists of packages could not be renewed; going on with the old ones." >&2
    if ! "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends "${missing[@]}"; then
        echo "These packages could not be installed, for the reason above: ${missing[*]}" >&2
        echo "With a network, or once they are there, start this again." >&2
        return 1
    fi
}

# the last three are optional: CMake says what the program lacks without them
build_packages=(g++ cmake ninja-build qt6-base-dev qt6-svg-dev fonts-urw-base35 fontconfig libgtest-dev locales libeigen3-dev
                libcfitsio-dev wcslib-dev libexiv2-dev)

# What build_preset builds; without a name here, everything.
build_targets=()

# Configures and builds a preset ("release", "sanitize"); further words go to cmake's configure step.
build_preset() {
    local preset=$1
    shift
    cmake --preset "$preset" "$@" >/dev/null
    cmake --build --preset "$preset" ${build_targets[@]+--target "${build_targets[@]}"}
}
