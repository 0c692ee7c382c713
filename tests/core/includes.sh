#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
#
# Checks that packaging/includes.cmake accepts the source tree and rejects each include that breaks the architecture.
# Usage: includes.sh ROOT
set -euo pipefail

root=$1
tree=$(mktemp -d)
trap 'rm -rf "$tree"' EXIT

check() {
    cmake -D ROOT="$1" -P "$root/packaging/includes.cmake"
}

check "$root"
cp -r "$root/core" "$root/frontends" "$tree"
while read -r file include; do
    cp "$tree/$file" "$tree/before"
    printf '#include %s\n' "$include" >> "$tree/$file"
    if check "$tree" 2> "$tree/messages"; then
        echo "$file: $include is not rejected"
        exit 1
    fi
    grep -qF "$file" "$tree/messages"
    cp "$tree/before" "$tree/$file"
done << 'END'
core/platform.h "screen/utf8.h"
core/screen/screen.h "program.h"
core/screen/screen.h <program.h>
core/exercise/addition.cpp "modes/division.h"
core/program.cpp "../frontends/qt/page.h"
core/program.cpp <../frontends/qt/page.h>
core/program.cpp "home/accueil.h"
frontends/timer_queue.h "qt/page.h"
frontends/recording/player.cpp "qt/page.h"
frontends/qt/page.cpp "recording/player.h"
frontends/qt/page.cpp "screen/screen.h"
END
