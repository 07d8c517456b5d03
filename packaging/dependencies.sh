# Installs what a build needs, from Debian's packages. Sourced by the scripts that build or check.

zlt_packages="g++ cmake ninja-build qt6-base-dev qt6-serialport-dev qt6-qpa-plugins
              libgl1-mesa-dev libgtest-dev libedit-dev fonts-dejavu-core"

# install_dependencies [PACKAGE...]: these too. Where there is no dpkg to ask, says what is needed and
# leaves it to the build to miss something.
install_dependencies() {
    if ! command -v dpkg-query >/dev/null; then
        echo "Needed here: a C++20 compiler, CMake 3.25, Ninja, Qt 6.4 (base and serial port), GoogleTest${*:+; and what Debian calls $*}." >&2
        return 0
    fi
    local missing="" package
    for package in $zlt_packages "$@"; do
        dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'ok installed' ||
            missing="$missing $package"
    done
    [ -n "$missing" ] || return 0
    if ! command -v apt-get >/dev/null; then
        echo "Please install with your system's package manager:$missing" >&2
        return 1
    fi
    echo "Installing:$missing"
    local as_root=""
    [ "$(id -u)" -eq 0 ] || as_root="sudo"
    $as_root apt-get update -qq &&
        $as_root env DEBIAN_FRONTEND=noninteractive \
            apt-get install -y -qq --no-install-recommends $missing >/dev/null
}
