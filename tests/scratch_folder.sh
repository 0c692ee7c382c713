#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
#
# Runs a command with a home folder, a runtime folder, a cache and a folder for temporary files of its own, and removes
# them afterwards.
# Usage: scratch_folder.sh COMMAND [ARGUMENT]...
set -euo pipefail

scratch=$(mktemp -d)

# Services of the session bus, which end after the command, may still write files.
remove_scratch() {
    local attempt
    for attempt in {1..50}; do
        if rm -rf -- "$scratch" 2>/dev/null; then return; fi
        sleep 0.1
    done
    echo "$scratch is still in use after $attempt attempts to remove it" >&2
    return 1
}
trap remove_scratch EXIT

mkdir -m 700 -- "$scratch"/{home,runtime,temporary}
unset XDG_CONFIG_HOME XDG_DATA_HOME XDG_STATE_HOME
export HOME=$scratch/home XDG_CACHE_HOME=$scratch/home/.cache XDG_RUNTIME_DIR=$scratch/runtime TMPDIR=$scratch/temporary
"$@"
