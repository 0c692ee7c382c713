#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""The machine sleeps for an hour in mid-operation: on waking, all goes on where it was."""

import json
import signal
import subprocess
import sys
import time
import unittest

from case import WindowCase, program
from learner import shows_faux

PRELOADED = {"LD_PRELOAD": str(program().parent / "libslept_an_hour.so")}
HOUR = 3600  # seconds
AWAKE = 2.5  # seconds, long enough for ticks that came too early to show

CLOCKS = ["CLOCK_REALTIME", "CLOCK_BOOTTIME", "CLOCK_MONOTONIC"]
SLEEPER = f"""
import json, os, signal, time
def clocks():
    return [time.clock_gettime(getattr(time, name)) for name in {CLOCKS}] + [time.time()]
before = clocks()
os.kill(os.getpid(), signal.SIGUSR1)
print(json.dumps([after - earlier for after, earlier in zip(clocks(), before)]))
"""


class Clocks(unittest.TestCase):
    def test_those_that_jump(self) -> None:
        """Otherwise the other tests would prove nothing."""
        command = [sys.executable, "-c", SLEEPER]
        said = subprocess.run(command, env=PRELOADED, stdout=subprocess.PIPE, check=True).stdout
        for seconds, expected in zip(json.loads(said), [HOUR, HOUR, 0, HOUR], strict=True):
            self.assertAlmostEqual(seconds, expected, delta=10)


class Sleep(WindowCase):
    settings = PRELOADED

    def sleep(self) -> None:
        """And look on for a while after waking."""
        self.desktop.program.send(signal.SIGUSR1)
        time.sleep(AWAKE)

    def test_addition(self) -> None:
        self.learner.start()
        self.learner.open("addition")
        _, operation = self.learner.see_operation("addition")
        self.sleep()
        sheet, same = self.learner.see_operation("addition")
        self.assertEqual(same, operation)
        self.assertFalse(shows_faux(sheet), "the limit has not struck")
        self.learner.submit(operation.result)
        self.learner.see_bravo("addition")

    def test_challenge(self) -> None:
        self.learner.start()
        self.learner.open("record")
        _, operation = self.learner.see_operation("record")
        _, before = self.learner.see_stopwatch()
        started = time.monotonic()
        self.sleep()
        sheet, after = self.learner.see_stopwatch()
        self.assertAlmostEqual(after - before, time.monotonic() - started, delta=1.5)
        self.assertFalse(shows_faux(sheet), "the limit has not struck")
        self.learner.submit(operation.result)
        self.learner.see_bravo("record")


if __name__ == "__main__":
    unittest.main()
