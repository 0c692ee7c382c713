#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
#
# Plays a scenario and compares the output with the transcript in the same folder.
# Usage: replay.sh PLAYER FILE.scenario
set -euo pipefail

player=$1
scenario=$2
"$player" < "$scenario" | diff --label played --label expected - "${scenario%.scenario}.transcript"
