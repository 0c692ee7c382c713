# shellcheck shell=bash disable=SC2034 # the lists are read by the commands
# SPDX-License-Identifier: MIT
#
# What the commands `run`, `test`, `bench/measure` and `packaging/package` have in common; they source it.

root=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.." >/dev/null && pwd)
build=$root/build

# Debian packages, to be installed without what they merely recommend.
packages_to_build=(g++ cmake ninja-build qt6-base-dev fonts-liberation fonts-kaushanscript)
packages_for_virtual_display=(xvfb xdotool imagemagick fontconfig python3)
packages_to_package=(appstream appstream-util desktop-file-utils dpkg-dev lintian reuse)
packages_to_test=(libgtest-dev librsvg2-bin python3-xlib x11-utils x11-xkb-utils x11-xserver-utils fonts-dejavu-core
    openbox xfwm4 metacity weston qt6-wayland dbus at-spi2-core python3-pyatspi clang-14 libclang-rt-14-dev strace
    "${packages_to_package[@]}" fakeroot libglib2.0-bin)
packages_to_check=(libgtest-dev clang-format-14 clang-tidy-14 cppcheck)
packages_to_measure=(libbenchmark-dev libx11-dev libxtst-dev dbus at-spi2-core python3-pyatspi dpkg-dev)

say() {
    printf '%s\n' "$*"
}

fail() {
    printf '%s\n' "$*" >&2
    exit 1
}

# quietly LOG COMMAND...: what the command says is shown only when it fails.
quietly() {
    local log=$1
    shift
    if ! "$@" >"$log" 2>&1 </dev/null; then
        cat -- "$log" >&2
        return 1
    fi
}

# ---- Packages ---------------------------------------------------------------------------------

missing_packages() {
    local known package
    known=$(dpkg-query --show --showformat='${Package} ${db:Status-Status}\n' "$@" 2>/dev/null || true)
    for package in "$@"; do
        if ! grep --quiet --line-regexp --fixed-strings -e "$package installed" <<<"$known"; then
            printf '%s\n' "$package"
        fi
    done
}

as_root() {
    if ((EUID == 0)); then
        "$@"
    else
        sudo "$@"
    fi
}

apt_get() {
    as_root env DEBIAN_FRONTEND=noninteractive apt-get --quiet --assume-yes --no-install-recommends \
        -o Acquire::Retries=3 -o DPkg::Lock::Timeout=120 "$@"
}

# A source that cannot be reached need not be the one that is needed: only the installation counts.
update_and_install() {
    apt_get update || true
    apt_get install "$@"
}

# install_missing PACKAGE...: asks nothing of the network when all of them are there.
install_missing() {
    local missing
    if ! command -v apt-get >/dev/null || ! command -v dpkg-query >/dev/null; then
        fail "Packages can be installed only on Debian and its kin. Elsewhere, what is needed is what" \
            "Debian calls: $*"
    fi
    mapfile -t missing < <(missing_packages "$@")
    if ((${#missing[@]} == 0)); then
        return
    fi
    if ((EUID != 0)) && ! command -v sudo >/dev/null; then
        fail "Not allowed to install packages. As root: apt-get install --no-install-recommends ${missing[*]}"
    fi
    say "Installing ${missing[*]}"
    quietly "$build/install.log" update_and_install "${missing[@]}" ||
        fail "The packages could not be installed; apt-get says why above. They are: ${missing[*]}"
}

# ---- The build --------------------------------------------------------------------------------

cached() {
    sed --quiet "s/^$1:[A-Z]*=//p" "$build/CMakeCache.txt" 2>/dev/null || true
}

# Whether the build folder was made for these sources, at this place.
build_is_ours() {
    [[ $(cached CMAKE_HOME_DIRECTORY) == "$root" && $(cached CMAKE_GENERATOR) == Ninja ]]
}

# configure TESTS: with TESTS=OFF, a build folder that has the tests keeps them.
configure() {
    local tests=$1
    local -a how=(-S "$root" -B "$build" -G Ninja -DBUILD_TESTING="$tests")
    if ! build_is_ours; then
        how+=(--fresh -DCMAKE_BUILD_TYPE=Release)
    elif [[ -f $build/build.ninja && ($tests == OFF || $(cached BUILD_TESTING) == ON) ]]; then
        return
    fi
    quietly "$build/configure.log" cmake "${how[@]}" || fail "The build could not be prepared."
}

# compile TESTS [ARGUMENT OF cmake --build]...
compile() {
    say "Building"
    configure "$1"
    shift
    quietly "$build/build.log" cmake --build "$build" "$@" || fail "The build failed."
}

mkdir -p -- "$build"
