# Sourced by ./run and ./check: goes to the root of the project and gives them these functions.
# shellcheck shell=bash

cd "$(dirname "${BASH_SOURCE[0]}")/.." || exit

# quietly WHAT COMMAND... - says WHAT and runs the command; its output is seen only when it fails,
# and that ends the script.
quietly() {
    local what=$1 output
    shift
    echo "$what"
    if ! output=$("$@" 2>&1); then
        printf '%s\n%s: failed: %s\n' "$output" "$(basename "$0")" "$what" >&2
        exit 1
    fi
}

missing_packages() {
    local package
    while read -r package; do
        if [[ $(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null) != installed ]]; then
            echo "$package"
        fi
    done < <(sed -e 's/#.*//' -e '/^[[:space:]]*$/d' packages.txt)
}

# Installs what packages.txt names and this system lacks; asks the network only then.
install_packages() {
    local missing as_root=()
    if ! command -v dpkg-query >/dev/null; then
        echo "not a Debian system: install by hand what stands for the names in packages.txt" >&2
        return
    fi
    mapfile -t missing < <(missing_packages)
    [[ ${#missing[@]} -gt 0 ]] || return 0
    if [[ $EUID -ne 0 ]]; then
        if ! command -v sudo >/dev/null; then
            echo "these packages are missing, and installing them takes root or sudo:" >&2
            echo "    apt-get install ${missing[*]}" >&2
            exit 1
        fi
        as_root=(sudo)
    fi
    as_root+=(env DEBIAN_FRONTEND=noninteractive)
    quietly "Updating the package lists" "${as_root[@]}" apt-get -q update
    quietly "Installing ${missing[*]}" \
        "${as_root[@]}" apt-get -qy --no-install-recommends install "${missing[@]}"
}

# build PRESET [TARGET...] - configures and builds, everything when no target is named.
build() {
    local preset=$1 options=()
    shift
    [[ $# -eq 0 ]] || options=(--target "$@")
    quietly "Configuring $preset" cmake --preset "$preset"
    quietly "Building $preset" \
        cmake --build --preset "$preset" --parallel "$(nproc)" "${options[@]}"
}
