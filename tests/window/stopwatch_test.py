#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""The stopwatch counts the whole seconds of open operations, even while a core is fully busy."""

import multiprocessing
import time
import unittest

from case import WindowCase

WRONG = 1  # never a right answer


def keep_busy() -> None:
    while True:
        pass


class Stopwatch(WindowCase):
    def setUp(self) -> None:
        super().setUp()
        load = multiprocessing.Process(target=keep_busy, daemon=True)
        load.start()
        self.addCleanup(load.kill)
        self.learner.start()
        self.opened = time.monotonic()
        self.learner.open("record")

    def leave_open(self, seconds: float) -> None:
        time.sleep(max(0.0, self.opened + seconds - time.monotonic()))
        self.learner.submit(WRONG)

    def seconds_since_opened(self) -> int:
        """Whole ones; the program cannot have counted more."""
        return int(time.monotonic() - self.opened)

    def go_on(self) -> None:
        self.desktop.press("Right")
        self.learner.see_correction()
        self.opened = time.monotonic()
        self.desktop.press("Right")

    def test_one_long_operation(self) -> None:
        self.leave_open(30.5)
        self.learner.see_faux()
        _, seconds = self.learner.see_stopwatch()
        self.assertAlmostEqual(seconds, 30, delta=1)

    def test_ten_short_operations(self) -> None:
        most = 0
        for _ in range(10):
            self.leave_open(1.5)
            self.learner.see_faux()
            most += self.seconds_since_opened()
            self.go_on()
        _, seconds = self.learner.see_stopwatch()
        most += self.seconds_since_opened()
        self.assertGreaterEqual(seconds, 10 + 1, "one each, and the first one of the operation that is open now")
        self.assertLessEqual(seconds, most, "more only where this busy machine left an operation open for longer")


if __name__ == "__main__":
    unittest.main()
