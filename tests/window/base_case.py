# SPDX-License-Identifier: MIT
"""Common parts of the tests that run the program in a window."""

import os
import sys
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "tour"))  # the tests share their helpers with the tour

from desktop import Desktop, DesktopEnvironment
from picture import Area
from learner import Learner
from screens import ContentArea


def program_path() -> Path:
    """From the variable CHIFFROLO; by default, the program that `./run` builds."""
    default = ROOT / "build" / "chiffrolo"
    return Path(os.environ.get("CHIFFROLO", default)).absolute()


os.environ.setdefault("CHIFFROLO_SCENARIO", str(program_path().with_name("scenario")))


def answer_addition(learner: Learner) -> ContentArea:
    """Waits for the operation, gives the right answer and waits for "Bravo"."""
    _, operation = learner.wait_for_operation("addition")
    learner.submit(operation.result)
    return learner.wait_for_bravo("addition")


class WindowCase(unittest.TestCase):
    """Fixture: each test has its own desktop with the program."""

    environment = DesktopEnvironment

    def setUp(self) -> None:
        self.desktop = self.enterContext(Desktop(program_path(), self.environment))
        self.learner = Learner(self.desktop)

    os.environ.setdefault("CHIFFROLO_SCENARIO", str(program_path().with_name("scenario")))


def answer_addition(self) -> ContentArea:
        return answer_addition(self.learner)

    def assert_near(self, found: Area | None, expected: Area, tolerance: int = 1) -> None:
        """`tolerance` is in pixels, for each edge."""
        self.assertIsNotNone(found, f"nothing found near {expected}")
        distance = max(abs(one - other) for one, other in zip(found, expected))
        self.assertLessEqual(distance, tolerance, f"{found} is not near {expected}")

    def assert_clean_exit(self) -> None:
        self.assertEqual(self.desktop.program.exit_status(), 0)
        self.assertEqual(self.desktop.program.error_output(), "")
