#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""The machine sleeps for an hour in mid-operation: on waking, all goes on where it was."""

import json
import signal
import subprocess
import sys
import time
import unittest

from case import program
from desktop import Desktop
from learner import Learner, read_stopwatch

PRELOADED = {"LD_PRELOAD": str(program().parent / "libslept_an_hour.so")}
HOUR = 3600  # seconds
LIMIT = 32  # seconds
AWAKE = 2.5  # seconds, long enough for ticks that came too early to show

CLOCKS = ["CLOCK_REALTIME", "CLOCK_BOOTTIME", "CLOCK_MONOTONIC"]
SLEEPER = f"""
import json, os, signal, time
def clocks():
    return [time.clock_gettime(getattr(time, name)) for name in {CLOCKS}]
before = clocks()
os.kill(os.getpid(), signal.SIGUSR1)
print(json.dumps([after - earlier for after, earlier in zip(clocks(), before)]))
"""


class Clocks(unittest.TestCase):
    def test_those_that_jump(self) -> None:
        """Otherwise the other tests would prove nothing."""
        command = [sys.executable, "-c", SLEEPER]
        said = subprocess.run(command, env=PRELOADED, stdout=subprocess.PIPE, check=True).stdout
        for seconds, expected in zip(json.loads(said), [HOUR, HOUR, 0], strict=True):
            self.assertAlmostEqual(seconds, expected, delta=10)


class Sleep(unittest.TestCase):
    def test_in_mid_operation(self) -> None:
        """In a challenge, whose stopwatch goes on, and whose limit strikes neither before its time nor much later."""
        desktop = self.enterContext(Desktop(program(), settings=PRELOADED))
        learner = Learner(desktop)
        learner.start()
        asked = time.monotonic()
        learner.open("record")
        _, operation = learner.see_operation("record")
        seen = time.monotonic()
        _, seconds = learner.see_stopwatch()
        before = time.monotonic()
        desktop.program.send(signal.SIGUSR1)
        time.sleep(AWAKE)
        _, later = learner.see_stopwatch()
        self.assertAlmostEqual(later - seconds, time.monotonic() - before, delta=1.5)

        time.sleep(max(0.0, asked + LIMIT - 2 - time.monotonic()))
        self.assertEqual(learner.see_operation("record")[1], operation)
        sheet = learner.wait_for("the limit", lambda sheet: sheet.shows_arrow("record"))
        struck = time.monotonic()
        self.assertGreaterEqual(struck - asked, LIMIT)
        self.assertLess(struck - seen, LIMIT + 2)
        self.assertAlmostEqual(read_stopwatch(sheet), LIMIT, delta=1)


if __name__ == "__main__":
    unittest.main()
