# SPDX-License-Identifier: MIT
"""Common parts of the tests that run the program in a window."""

import os
import sys
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "tour"))  # the tests share their helpers with the tour

from desktop import Desktop, DesktopEnvironment, Program
from learner import Learner

# From the variable CHIFFROLO; by default, the program that `./run` builds.
PROGRAM = Path(os.environ.get("CHIFFROLO", ROOT / "build" / "chiffrolo")).absolute()
# Also for tests of the page, which is in another folder.
os.environ.setdefault("CHIFFROLO_SCENARIO", str(PROGRAM.with_name("scenario")))


class WindowCase(unittest.TestCase):
    def start(
        self, environment: type[DesktopEnvironment] = DesktopEnvironment, path: Path = PROGRAM,
        variables: dict[str, str] = {},
    ) -> Learner:
        """The program shows the home screen and has the focus. `variables` are those of `Desktop`."""
        learner = Learner(self.enterContext(Desktop(path, environment, variables)))
        learner.wait_for_start()
        return learner

    def assert_ends(self, program: Program) -> None:
        """With status 0 and without error output."""
        self.assertEqual((program.exit_status(), program.error_output()), (0, ""))
