#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""Simulates that the machine sleeps for an hour during an operation. The timers continue afterwards."""

import json
import signal
import subprocess
import sys
import time
import unittest

from base_case import program_path
from desktop import Desktop
from learner import Learner, read_stopwatch

PRELOADED = {"LD_PRELOAD": str(program_path().parent / "libsimulate_sleep.so")}
HOUR = 3600  # seconds
LIMIT = 32  # seconds
AFTER_WAKING = 2.5  # seconds, long enough to detect ticks that come too early

CLOCKS = ["CLOCK_REALTIME", "CLOCK_BOOTTIME", "CLOCK_MONOTONIC"]
CLOCK_SCRIPT = f"""
import json, os, signal, time
def clocks():
    return [time.clock_gettime(getattr(time, name)) for name in {CLOCKS}]
before = clocks()
os.kill(os.getpid(), signal.SIGUSR1)
print(json.dumps([after - earlier for after, earlier in zip(clocks(), before)]))
"""


class Clocks(unittest.TestCase):
    def test_clocks_that_run_during_sleep_jump_by_an_hour(self) -> None:
        """Verifies the simulation on which the other test depends."""
        command = [sys.executable, "-c", CLOCK_SCRIPT]
        output = subprocess.run(command, env=PRELOADED, stdout=subprocess.PIPE, check=True).stdout
        for seconds, expected in zip(json.loads(output), [HOUR, HOUR, 0], strict=True):
            self.assertAlmostEqual(seconds, expected, delta=10)


class Sleep(unittest.TestCase):
    def test_stopwatch_and_limit_continue_after_sleep(self) -> None:
        """The time limit of the challenge is neither early nor more than two seconds late."""
        desktop = self.enterContext(Desktop(program_path(), variables=PRELOADED))
        learner = Learner(desktop)
        learner.wait_for_start()
        opened = time.monotonic()
        learner.open("record")
        _, operation = learner.wait_for_operation("record")
        operation_shown = time.monotonic()
        _, seconds = learner.wait_for_stopwatch()
        before = time.monotonic()
        desktop.program.send_signal(signal.SIGUSR1)
        time.sleep(AFTER_WAKING)
        _, later = learner.wait_for_stopwatch()
        self.assertAlmostEqual(later - seconds, time.monotonic() - before, delta=1.5)

        time.sleep(max(0.0, opened + LIMIT - 2 - time.monotonic()))
        self.assertEqual(learner.wait_for_operation("record")[1], operation)
        content = learner.wait_for("the limit", lambda content: content.shows_arrow("record"))
        limit_reached = time.monotonic()
        self.assertGreaterEqual(limit_reached - opened, LIMIT)
        self.assertLess(limit_reached - operation_shown, LIMIT + 2)
        self.assertAlmostEqual(read_stopwatch(content), LIMIT, delta=1)


if __name__ == "__main__":
    unittest.main()
