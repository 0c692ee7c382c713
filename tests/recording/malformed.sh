#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
#
# Checks that a malformed line ends the playback with status 2 and a message that contains the line number, and that
# the output of the lines before it is kept.
# Usage: malformed.sh PLAYER
set -euo pipefail

player=$1
status=0
messages=$(mktemp)
trap 'rm -f "$messages"' EXIT
printed=$(printf '# first\n\nkey Escape\nkey Entre\nkey 1\n' | "$player" 2> "$messages") || status=$?

[ "$status" = 2 ] || { echo "exit status $status instead of 2"; exit 1; }
[ "$(tail -n 1 <<< "$printed")" = "activate Aurevoir" ] || { echo "printed: $printed"; exit 1; }
grep -q '\b4\b' "$messages" || { echo "the message does not contain line number 4: $(cat "$messages")"; exit 1; }
