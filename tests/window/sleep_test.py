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
from learner import Learner

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


class OpenOperation:
    """Of an exercise in a window of its own, since it was asked for."""

    def __init__(self, desktop: Desktop, screen: str):
        self.desktop = desktop
        self.learner = Learner(desktop)
        self.screen = screen
        self.learner.start()
        self.asked = time.monotonic()
        self.learner.open(screen)
        _, self.operation = self.learner.see_operation(screen)
        self.seen = time.monotonic()

    def wait(self, seconds: float) -> None:
        """Until it has been open for so long."""
        time.sleep(max(0.0, self.asked + seconds - time.monotonic()))


class Sleep(unittest.TestCase):
    def open(self, screen: str) -> OpenOperation:
        desktop = Desktop(program(), settings=PRELOADED)
        self.addCleanup(desktop.close)
        return OpenOperation(desktop, screen)

    def test_in_mid_operation(self) -> None:
        addition, challenge = self.open("addition"), self.open("record")
        _, seconds = challenge.learner.see_stopwatch()
        before = time.monotonic()
        for opened in (addition, challenge):
            opened.desktop.program.send(signal.SIGUSR1)
        time.sleep(AWAKE)
        _, later = challenge.learner.see_stopwatch()
        self.assertAlmostEqual(later - seconds, time.monotonic() - before, delta=1.5)
        self.assert_limit(addition, 30)
        self.assert_limit(challenge, 32)

    def assert_limit(self, opened: OpenOperation, seconds: int) -> None:
        """It strikes neither before nor much later."""
        opened.wait(seconds - 2)
        self.assertEqual(opened.learner.see_operation(opened.screen)[1], opened.operation)
        opened.learner.wait_for("the limit", lambda sheet: sheet.shows_arrow(opened.screen))
        struck = time.monotonic()
        self.assertGreaterEqual(struck - opened.asked, seconds)
        self.assertLess(struck - opened.seen, seconds + 2)


if __name__ == "__main__":
    unittest.main()
