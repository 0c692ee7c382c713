#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""Simulates that the machine sleeps for an hour during an operation. The timers continue afterwards."""

import signal
import subprocess
import sys
import time
import unittest

from base_case import PROGRAM, WindowCase
from learner import read_stopwatch

# LD_PRELOAD is split at blanks, and the build folder may contain some.
PRELOADED = {"LD_PRELOAD": "libsimulate_sleep.so", "LD_LIBRARY_PATH": str(PROGRAM.parent)}
LIMIT = 32  # seconds
CLOCKS = (time.CLOCK_REALTIME, time.CLOCK_BOOTTIME, time.CLOCK_MONOTONIC)
READ_CLOCKS = f"import os, time; os.kill(os.getpid(), {signal.SIGUSR1:d}); print(*map(time.clock_gettime, {CLOCKS}))"


class Sleep(WindowCase):
    def test_simulation_moves_clocks_that_run_during_sleep_by_an_hour(self) -> None:
        """The other test depends on it."""
        earlier = [time.clock_gettime(clock) for clock in CLOCKS]
        output = subprocess.run([sys.executable, "-c", READ_CLOCKS], env=PRELOADED, stdout=subprocess.PIPE).stdout
        for clock, before, after, expected in zip(CLOCKS, earlier, output.split(), (3600, 3600, 0), strict=True):
            self.assertAlmostEqual(float(after) - before, expected, delta=60, msg=clock)

    def test_stopwatch_and_limit_continue_after_sleep(self) -> None:
        """The time limit of the challenge is neither early nor more than two seconds late."""
        learner = self.start(variables=PRELOADED)
        opened = time.monotonic()
        learner.open("record")
        learner.wait_for_operation("record")
        operation_shown = time.monotonic()
        learner.wait_for_stopwatch()
        learner.desktop.program.process.send_signal(signal.SIGUSR1)
        learner.wait_for("half the limit", lambda content: read_stopwatch(content) >= LIMIT // 2)
        self.assertGreaterEqual(time.monotonic() - opened, LIMIT // 2, "the stopwatch is fast")
        content = learner.wait_for("the limit", lambda content: content.shows_arrow("record"))
        limit_reached = time.monotonic()
        self.assertGreaterEqual(limit_reached - opened, LIMIT)
        self.assertLess(limit_reached - operation_shown, LIMIT + 2)
        self.assertAlmostEqual(read_stopwatch(content), LIMIT, delta=1)


if __name__ == "__main__":
    unittest.main()
