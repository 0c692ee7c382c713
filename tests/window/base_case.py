# SPDX-License-Identifier: MIT
"""Common parts of the tests that run the program in a window."""

import os
import sys
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "tour"))  # the tests share their helpers with the tour

from desktop import Desktop, DesktopEnvironment
from learner import Learner
from screens import ContentArea


def program_path() -> Path:
    """From the variable CHIFFROLO; by default, the program that `./run` builds."""
    return Path(os.environ.get("CHIFFROLO", ROOT / "build" / "chiffrolo")).absolute()


# Also for tests that start the program by a script in another folder.
os.environ.setdefault("CHIFFROLO_SCENARIO", str(program_path().with_name("scenario")))


def answer_addition(learner: Learner) -> ContentArea:
    """Waits for the operation, gives the right answer and waits for "Bravo"."""
    _, operation = learner.wait_for_operation("addition")
    learner.submit(operation.result)
    return learner.wait_for_bravo("addition")


class WindowCase(unittest.TestCase):
    """Fixture: each test has its own desktop with the program, which shows the home screen and has the focus."""

    environment = DesktopEnvironment

    def setUp(self) -> None:
        self.desktop = self.enterContext(Desktop(program_path(), self.environment))
        self.learner = Learner(self.desktop)
        self.learner.wait_for_start()
