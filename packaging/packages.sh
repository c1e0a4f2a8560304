# shellcheck shell=bash disable=SC2034 # The lists are for the scripts that source this one.
# All Debian packages that the project needs, and a function that installs the missing ones.
# To be sourced by a bash script: source packaging/packages.sh

buildPackages=(g++ cmake ninja-build qt6-base-dev qt6-multimedia-dev libxcb1-dev libsqlite3-dev nlohmann-json3-dev libcli11-dev)
runPackages=(libqt6widgets6 libqt6printsupport6 libqt6multimediawidgets6 qt6-qpa-plugins
    fonts-liberation2 fonts-dejavu-core)
discPackages=(libsword-utils sword-text-kjv sword-text-web)
testPackages=(python3 black clang-format shellcheck libgtest-dev libgmock-dev libbenchmark-dev)
walkPackages=(xvfb xauth x11-utils openbox xdotool imagemagick poppler-utils dbus at-spi2-core python3-gi gir1.2-atspi-2.0) # a virtual screen, and tools to use it
managerPackages=(xfwm4 marco) # for walks under other window managers than openbox
waylandPackages=("${walkPackages[@]}" qt6-wayland sway grim) # for tools/check_wayland.sh

# InstallMissing PACKAGE...: installs the packages that are missing; runs apt-get only if there are
# any. Says what it does. On failure it prints the command to run by hand and returns nonzero.
InstallMissing() {
    local package missing=() asRoot=()
    for package in "$@"; do
        [ "$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null)" = installed ] || missing+=("$package")
    done
    if [ ${#missing[@]} -eq 0 ]; then
        echo "All packages are installed."
        return 0
    fi

    echo "Missing packages, to be installed: ${missing[*]}"
    local install=(apt-get install -y --no-install-recommends "${missing[@]}")
    if [ "$(id -u)" -ne 0 ]; then
        if ! command -v sudo >/dev/null; then
            echo "This needs root, and there is no sudo. Please run as root: ${install[*]}" >&2
            return 1
        fi
        asRoot=(sudo)
    fi
    "${asRoot[@]}" apt-get update -q || echo "The package lists couldn't be renewed; trying with those at hand." >&2
    if ! "${asRoot[@]}" env DEBIAN_FRONTEND=noninteractive "${install[@]}"; then
        echo "The packages couldn't be installed. Please run as root: ${install[*]}" >&2
        return 1
    fi
}
