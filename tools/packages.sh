# Installs the Debian packages that a purpose needs, by name, and only those that are missing, so that a second run
# needs no network. To be sourced; call: need_packages NAME...

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
    if [ "$(id -u)" -ne 0 ]; then
        command -v sudo >/dev/null || {
            echo "These packages are missing, and there is no sudo to install them: ${missing[*]}" >&2
            return 1
        }
        as_root=(sudo)
    fi
    "${as_root[@]}" apt-get update
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends "${missing[@]}"
}

build_packages=(g++ cmake ninja-build qt6-base-dev fonts-urw-base35 fontconfig libgtest-dev locales)

# What build_preset builds; without a name here, everything.
build_targets=()

# Configures and builds a preset ("release", "sanitize"); further words go to cmake's configure step.
build_preset() {
    local preset=$1
    shift
    cmake --preset "$preset" "$@" >/dev/null
    cmake --build --preset "$preset" ${build_targets[@]+--target "${build_targets[@]}"}
}
