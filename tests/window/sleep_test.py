#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""Simulates that the machine sleeps for an hour during an operation. The timers continue afterwards."""

import signal
import subprocess
import sys
import time
import unittest

from base_case import program_path
from desktop import Desktop
from learner import Learner, read_stopwatch

PRELOADED = {"LD_PRELOAD": str(program_path().parent / "libsimulate_sleep.so")}
LIMIT = 32  # seconds

CLOCK_SCRIPT = """
import os, signal, time
def slept():
    return [time.clock_gettime(clock) - time.monotonic() for clock in (time.CLOCK_REALTIME, time.CLOCK_BOOTTIME)]
before = slept()
os.kill(os.getpid(), signal.SIGUSR1)
print(*(round(after - earlier) for after, earlier in zip(slept(), before)))
"""


class Sleep(unittest.TestCase):
    def test_simulation_moves_clocks_that_run_during_sleep_by_an_hour(self) -> None:
        """The other test depends on it."""
        output = subprocess.run([sys.executable, "-c", CLOCK_SCRIPT], env=PRELOADED, stdout=subprocess.PIPE).stdout
        self.assertEqual(output.split(), [b"3600", b"3600"])

    def test_stopwatch_and_limit_continue_after_sleep(self) -> None:
        """The time limit of the challenge is neither early nor more than two seconds late."""
        desktop = self.enterContext(Desktop(program_path(), variables=PRELOADED))
        learner = Learner(desktop)
        learner.wait_for_start()
        opened = time.monotonic()
        learner.open("record")
        learner.wait_for_operation("record")
        operation_shown = time.monotonic()
        learner.wait_for_stopwatch()
        desktop.program.send_signal(signal.SIGUSR1)
        learner.wait_for("half the limit", lambda content: read_stopwatch(content) >= LIMIT // 2)
        self.assertGreaterEqual(time.monotonic() - opened, LIMIT // 2, "the stopwatch is fast")
        content = learner.wait_for("the limit", lambda content: content.shows_arrow("record"))
        limit_reached = time.monotonic()
        self.assertGreaterEqual(limit_reached - opened, LIMIT)
        self.assertLess(limit_reached - operation_shown, LIMIT + 2)
        self.assertAlmostEqual(read_stopwatch(content), LIMIT, delta=1)


if __name__ == "__main__":
    unittest.main()
