#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""Without a display, the program ends at once: with one line on standard error, status 1, and no crash."""

import resource
import tempfile
import time
import unittest
from pathlib import Path

from case import answer_addition, program
from desktop import Desktop, Program, Surroundings, environment_without_display
from learner import Learner
from surroundings import Weston

AT_ONCE = 2.0  # seconds


class DisplayFaults(unittest.TestCase):
    def setUp(self) -> None:
        """Crashes would leave a core dump in the scratch folder."""
        _, most = resource.getrlimit(resource.RLIMIT_CORE)
        resource.setrlimit(resource.RLIMIT_CORE, (most, most))
        self.folder = Path(self.enterContext(tempfile.TemporaryDirectory()))

    def test_no_display(self) -> None:
        self.start_without(environment_without_display())

    def test_wrong_display(self) -> None:
        self.start_without(environment_without_display() | {"DISPLAY": ":4711"})

    def test_display_goes_away_in_mid_game(self) -> None:
        self.lose_display(Surroundings)

    def test_compositor_goes_away_in_mid_game(self) -> None:
        self.lose_display(Weston)

    def start_without(self, environment: dict[str, str]) -> None:
        started = time.monotonic()
        process = Program(program(), environment, self.folder)
        self.addCleanup(process.close)
        self.assert_gave_up(process, started)

    def lose_display(self, surroundings: type[Surroundings]) -> None:
        desktop = self.enterContext(Desktop(program(), surroundings, self.folder))
        learner = Learner(desktop)
        learner.start()
        learner.open("addition")
        answer_addition(learner)
        self.assertEqual(desktop.program.errors(), "")
        lost = time.monotonic()
        desktop.surroundings.break_down()
        self.assert_gave_up(desktop.program, lost)

    def assert_gave_up(self, process: Program, since: float) -> None:
        self.assertEqual(process.exit_status(), 1, process.errors())
        self.assertLess(time.monotonic() - since, AT_ONCE)
        self.assertRegex(process.errors(), r"\A[^\n]+\n\Z")
        self.assertEqual(list(self.folder.iterdir()), [], "what a crash leaves behind")


if __name__ == "__main__":
    unittest.main()
