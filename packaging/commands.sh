# shellcheck shell=bash disable=SC2034 # the commands use the lists
# SPDX-License-Identifier: MIT
#
# Common functions. The commands `run`, `test`, `bench/measure` and the shell scripts beside this file source it.

root=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.." >/dev/null && pwd)
build=$root/build

# Debian packages, installed without recommended packages.
packages_to_build=(g++ cmake ninja-build qt6-base-dev fonts-liberation fonts-kaushanscript)
packages_for_virtual_display=(xvfb xdotool fontconfig python3 python3-numpy python3-pil)
packages_to_package=(build-essential debhelper dpkg-dev python3-markdown appstream appstream-util desktop-file-utils
    lintian reuse)
packages_to_test=(libgtest-dev python3-xlib x11-utils x11-xkb-utils x11-xserver-utils fonts-dejavu-core openbox xfwm4
    metacity weston qt6-wayland dbus at-spi2-core python3-pyatspi clang-14 libclang-rt-14-dev strace python3-markdown
    libglib2.0-bin)
packages_to_check=(libgtest-dev libbenchmark-dev libx11-dev libxtst-dev clang-format-14 clang-tidy-14 cppcheck
    imagemagick librsvg2-bin shellcheck pyflakes3 mypy)
packages_for_web=(cmake ninja-build clang-16 lld-16 llvm-16 wasi-libc libc++-16-dev-wasm32 libc++abi-16-dev-wasm32
    libclang-rt-16-dev-wasm32 binaryen node-typescript esbuild nodejs python3 fonttools python3-brotli
    fonts-liberation2 fonts-kaushanscript librsvg2-bin)
# In a container without user namespaces, Chromium runs only with chromium-sandbox.
packages_to_test_web=(chromium chromium-driver chromium-sandbox python3-selenium firefox-esr webkit2gtk-driver)
packages_to_measure=(libbenchmark-dev libx11-dev libxtst-dev dbus at-spi2-core python3-pyatspi dpkg-dev)

print_line() {
    printf '%s\n' "$*"
}

fail() {
    printf '%s\n' "$*" >&2
    exit 1
}

# run_quietly LOG COMMAND...: prints the output of the command only if it fails.
run_quietly() {
    run_with_progress cat "$@" >/dev/null
}

# run_with_progress FILTER LOG COMMAND...: like run_quietly, but prints what FILTER makes of the output meanwhile.
run_with_progress() {
    local filter=$1 log=$2
    shift 2
    if ! "$@" 2>&1 </dev/null | tee -- "$log" | "$filter"; then
        cat -- "$log" >&2
        return 1
    fi
}

# On a terminal, replaces the previous progress. Elsewhere, prints a line every 15 seconds.
print_progress() {
    if [[ -t 1 ]]; then
        printf '\r    %s\e[K' "$*"
    elif ((SECONDS - ${last_progress:=0} >= 15)); then
        last_progress=$SECONDS
        print_line "    $*"
    fi
}

clear_progress() {
    if [[ -t 1 ]]; then
        printf '\r\e[K'
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

# require_root PACKAGE...: sudo asks for a password here, and its error is printed once.
require_root() {
    if ((EUID == 0)) || { command -v sudo >/dev/null && sudo true; }; then
        return
    fi
    fail "Installing packages requires root. Run these commands as root, then start this one again:
    apt-get update
    apt-get install --no-install-recommends $*"
}

as_root() {
    if ((EUID == 0)); then
        "$@"
    else
        sudo "$@"
    fi
}

# In English, because the progress is read from the output.
apt_get() {
    as_root env DEBIAN_FRONTEND=noninteractive LC_ALL=C apt-get --quiet --assume-yes --no-install-recommends \
        -o Acquire::Retries=3 -o DPkg::Lock::Timeout=120 "$@"
}

# Before the download begins, prints the sizes that `apt-get` estimates. The minutes are those of three packages a
# second, the download included.
filter_apt_get() {
    local line packages=0 size='' downloaded=0 unpacked=0 ready=0
    while IFS= read -r line; do
        if [[ $line =~ ([0-9]+)\ newly\ installed ]]; then
            packages=${BASH_REMATCH[1]}
        elif [[ $line =~ ^Need\ to\ get\ ([0-9.,]+\ [kMG]?B) ]]; then
            size=${BASH_REMATCH[1]}
        elif [[ $line =~ ^After\ this\ operation,\ (.*)\ of\ additional ]]; then
            print_line "    $packages packages: $size to download, ${BASH_REMATCH[1]} of disk space," \
                "about $((packages / 180 + 1)) min with a fast connection"
        elif [[ $line == Get:* ]]; then
            print_progress "$((downloaded += 1)) of $packages packages downloaded"
        elif [[ $line == 'Unpacking '* ]]; then
            print_progress "$((unpacked += 1)) of $packages packages unpacked"
        elif [[ $line == 'Setting up '* ]]; then
            print_progress "$((ready += 1)) of $packages packages set up"
        fi
    done
    clear_progress
}

# install_missing PACKAGE...: does not use the network if all packages are installed.
install_missing() {
    local missing
    if ! command -v apt-get >/dev/null || ! command -v dpkg-query >/dev/null; then
        fail "Packages can be installed only on Debian and derived systems. Install the equivalents of these Debian" \
            "packages: $*"
    fi
    mapfile -t missing < <(missing_packages "$@")
    if ((${#missing[@]} == 0)); then
        return
    fi
    print_line "Installing ${missing[*]}"
    require_root "${missing[@]}"
    print_line "    Updating the list of packages"
    # An unreachable source may be irrelevant for these packages.
    apt_get update >"$build/update.log" 2>&1 </dev/null || true
    run_with_progress filter_apt_get "$build/install.log" apt_get install "${missing[@]}" ||
        fail "Installing these packages failed (see the output of apt-get above): ${missing[*]}"
}

# ---- The build --------------------------------------------------------------------------------

cache_value() {
    sed --quiet "s/^$1:[A-Z]*=//p" "$build/CMakeCache.txt" 2>/dev/null || true
}

# Whether the build folder was configured with Ninja for the sources in this folder.
build_folder_matches() {
    [[ $(cache_value CMAKE_HOME_DIRECTORY) == "$root" && $(cache_value CMAKE_GENERATOR) == Ninja ]]
}

# configure TESTS: TESTS is ON or OFF. OFF does not remove the tests from a build folder that has them. ON always
# configures, because packages that only the tests need may have been installed since.
configure() {
    local tests=$1
    local -a options=(-S "$root" -B "$build" -G Ninja -DBUILD_TESTING="$tests")
    if ! build_folder_matches; then
        options+=(--fresh -DCMAKE_BUILD_TYPE=Release)
    elif [[ -f $build/build.ninja && $tests == OFF ]]; then
        return
    fi
    run_quietly "$build/configure.log" cmake "${options[@]}" || fail "Configuring the build failed."
}

# Prints the progress of Ninja.
filter_ninja() {
    local line
    while IFS= read -r line; do
        if [[ $line =~ ^\[([0-9]+)/([0-9]+)\] ]]; then
            print_progress "${BASH_REMATCH[1]} of ${BASH_REMATCH[2]} steps"
        fi
    done
    clear_progress
}

# compile TESTS [ARGUMENT OF cmake --build]...
compile() {
    local minutes="one to two minutes"
    if [[ $1 == ON ]]; then
        minutes="about four minutes"
    fi
    if [[ -f $build/build.ninja ]]; then
        print_line "Building"
    else
        print_line "Building (the first time, this takes $minutes on two processors)"
    fi
    configure "$1"
    shift
    run_with_progress filter_ninja "$build/build.log" cmake --build "$build" "$@" || fail "The build failed."
}

# ---- The Debian package -----------------------------------------------------------------------

# Replaces "Local build", the maintainer in the folder `debian`, by DEBFULLNAME and DEBEMAIL if they are set, and adds
# CHIFFROLO_HOMEPAGE if it is set.
set_distributor() {
    local debian=$1
    if [[ -n ${DEBEMAIL:-} ]]; then
        sed --in-place "s|Local build of Chiffrolo <nobody@localhost>|${DEBFULLNAME:-Chiffrolo} <$DEBEMAIL>|" \
            "$debian/control" "$debian/changelog"
    fi
    if [[ -n ${CHIFFROLO_HOMEPAGE:-} ]]; then
        sed --in-place "/^Rules-Requires-Root/a Homepage: $CHIFFROLO_HOMEPAGE" "$debian/control"
    fi
}

# archive_upstream FOLDER: makes the source archive of this version beside the folder, equal for equal files.
archive_upstream() {
    local folder=$1 version date
    version=$(dpkg-parsechangelog -l "$folder/debian/changelog" -S Version)
    date=$(dpkg-parsechangelog -l "$folder/debian/changelog" -S Timestamp)
    tar -C "$folder" --create --xz --file="$folder/../chiffrolo_${version%-*}.orig.tar.xz" --exclude=./debian \
        --sort=name --mtime="@$date" --owner=0 --group=0 --numeric-owner --mode=u+rw,go=rX,a-s \
        --transform='s,^\.,chiffrolo,' .
}

# Makes the source package and the binary packages in build/package. They are built in a folder whose path has no
# special characters, so that the compiler can leave the path out of the program.
make_package() {
    print_line "Making the Debian package"
    scratch=$(mktemp --directory)
    trap 'rm -rf -- "$scratch"' EXIT # if a command fails
    mkdir -- "$scratch/chiffrolo"
    tar -C "$root" --create --exclude=./build --exclude=./.git . | tar -C "$scratch/chiffrolo" --extract
    set_distributor "$scratch/chiffrolo/debian"
    archive_upstream "$scratch/chiffrolo"
    (cd "$scratch/chiffrolo" && run_quietly "$build/package.log" dpkg-buildpackage --no-sign) ||
        fail "Making the Debian package failed."
    rm -rf -- "$build/package" "$scratch/chiffrolo"
    mv -- "$scratch" "$build/package"
}

# ---- The page for browsers --------------------------------------------------------------------

# The first ones that have all that the page needs.
oldest_browsers=chrome97,firefox113,safari16.4

# run_for_page COMMAND...
run_for_page() {
    run_quietly "$build/web.log" "$@" || fail "Making the page failed."
}

# bundle FILE RESULT [OPTION OF esbuild]...
bundle() {
    run_for_page esbuild "$root/frontends/web/$1" --bundle --minify --charset=utf8 --log-level=warning \
        --outfile="$build/web/$2" "${@:3}"
}

# draw_icon SOURCE SIDE RESULT: SIDE in pixels
draw_icon() {
    run_for_page rsvg-convert --width "$2" --height "$2" --output "$build/web/site/$3.png" "$root/assets/$1.svg"
}

# Makes build/web/site, the folder for web servers, of the page.
make_site() {
    local web=$build/web site=$build/web/site hash
    rm -rf -- "$site"
    mkdir -- "$site"
    cp -- "$web/chiffrolo.html" "$site/index.html"
    cp -- "$root/frontends/web/manifest.webmanifest" "$site"
    draw_icon chiffrolo 192 icon-192
    draw_icon chiffrolo 512 icon-512
    draw_icon chiffrolo-decoupable 512 icon-maskable-512
    hash=$(sha256sum <"$web/chiffrolo.html")
    run_for_page tsc --project "$root/frontends/web/tsconfig.worker.json"
    bundle service_worker.ts site/service-worker.js --format=iife --target="$oldest_browsers" \
        --define:pageHash="\"${hash%% *}\""
}

# Makes build/web/chiffrolo.html, build/web/site and build/web/scenario.mjs.
make_page() {
    local web=$build/web
    print_line "Making the page"
    (cd "$root" && run_for_page cmake --preset web && run_for_page cmake --build --preset web)
    run_for_page /usr/bin/python3 -B "$root/packaging/web_fonts.py" "$web/fonts"
    gzip --best --no-name --stdout "$web/chiffrolo.wasm" >"$web/chiffrolo.wasm.gz"
    run_for_page tsc --project "$root/frontends/web"
    bundle page/page.css page.css
    bundle page/main.ts page.js --format=iife --target="$oldest_browsers" \
        --loader:.gz=binary --loader:.woff2=binary --loader:.png=dataurl --loader:.svg=dataurl
    bundle scenario/main.ts scenario.mjs --format=esm --platform=node --target=node18
    run_for_page /usr/bin/python3 -B "$root/packaging/web_page.py" "$root/frontends/web/page/index.html" \
        "$web/page.css" "$web/page.js" "$root/assets/chiffrolo.svg" "$web/fonts/fonts_licence.txt" \
        "$web/chiffrolo.html"
    make_site
}

# Tools that convert file names, as libarchive does, need UTF-8 for the accents in a path.
if [[ $(locale charmap 2>/dev/null) != UTF-8 ]]; then
    export LC_ALL=C.UTF-8
fi
mkdir -p -- "$build"
