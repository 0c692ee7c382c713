# SPDX-License-Identifier: MIT
"""What the tests with a real window have in common."""

import os
import sys
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "tour"))  # the learner who plays the tour also plays the tests

from desktop import Desktop, Surroundings
from learner import Learner
from picture import Area
from screens import Sheet


def program() -> Path:
    """The one named by the environment, or else the one that `./run` builds."""
    built = ROOT / "build" / "chiffrolo"
    return Path(os.environ.get("CHIFFROLO", built)).absolute()


def answer_addition(learner: Learner) -> Sheet:
    """Rightly, once it is seen."""
    _, operation = learner.see_operation("addition")
    learner.submit(operation.result)
    return learner.see_bravo("addition")


class WindowCase(unittest.TestCase):
    """A desktop of its own for each test."""

    surroundings = Surroundings

    def setUp(self) -> None:
        self.desktop = self.enterContext(Desktop(program(), self.surroundings))
        self.learner = Learner(self.desktop)

    def answer_addition(self) -> Sheet:
        return answer_addition(self.learner)

    def assert_near(self, found: Area | None, expected: Area, tolerance: int = 1) -> None:
        self.assertIsNotNone(found, f"nothing near {expected}")
        far = max(abs(one - other) for one, other in zip(found, expected))
        self.assertLessEqual(far, tolerance, f"{found} is not near {expected}")

    def assert_ended_well(self) -> None:
        self.assertEqual(self.desktop.program.exit_status(), 0)
        self.assertEqual(self.desktop.program.errors(), "")
