#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""Without a display, the program exits at once with status 1 and one line on standard error, and does not crash.

It prints what Qt reports if something else is missing, or when asked.
"""

import resource
import tempfile
import time
import unittest
from pathlib import Path

from base_case import answer_addition, program_path
from desktop import Desktop, DesktopEnvironment, Program, variables_without_display
from desktop_environments import Weston
from learner import Learner

MAX_EXIT_TIME = 2.0  # seconds


class DisplayFaults(unittest.TestCase):
    def setUp(self) -> None:
        """Enables core dumps: a crash leaves a file in the scratch folder."""
        _, hard_limit = resource.getrlimit(resource.RLIMIT_CORE)
        resource.setrlimit(resource.RLIMIT_CORE, (hard_limit, hard_limit))
        self.folder = Path(self.enterContext(tempfile.TemporaryDirectory()))

    def test_exits_without_display(self) -> None:
        self.start_with(variables_without_display())

    def test_exits_if_display_does_not_exist(self) -> None:
        self.start_with(variables_without_display() | {"DISPLAY": ":4711"})

    def test_exits_when_x_server_is_killed(self) -> None:
        self.kill_display_server(DesktopEnvironment)

    def test_exits_when_compositor_is_killed(self) -> None:
        self.kill_display_server(Weston)

    def test_prints_the_message_of_qt_if_the_platform_is_unknown(self) -> None:
        errors = self.error_output_with(QT_QPA_PLATFORM="abacus")
        self.assertIn('Could not find the Qt platform plugin "abacus"', errors)
        self.assertIn("no Qt platform plugin could be initialized", errors)
        self.assertNotIn("Chiffrolo :", errors)

    def test_prints_the_messages_of_qt_when_asked(self) -> None:
        errors = self.error_output_with(QT_DEBUG_PLUGINS="1")
        self.assertIn("could not connect to display", errors)
        self.assertIn("Chiffrolo :", errors.splitlines()[-1])

    def start_with(self, variables: dict[str, str]) -> None:
        started = time.monotonic()
        self.assert_exits(self.start(variables), started)

    def start(self, variables: dict[str, str]) -> Program:
        process = Program(program_path(), variables, self.folder)
        self.addCleanup(process.close)
        return process

    def error_output_with(self, **variables: str) -> str:
        process = self.start(variables_without_display() | variables)
        self.assertEqual(process.exit_status(), 1)
        return process.error_output()

    def kill_display_server(self, environment: type[DesktopEnvironment]) -> None:
        desktop = self.enterContext(Desktop(program_path(), environment, self.folder))
        learner = Learner(desktop)
        learner.wait_for_start()
        learner.open("addition")
        answer_addition(learner)
        self.assertEqual(desktop.program.error_output(), "")
        killed = time.monotonic()
        desktop.environment.kill_display_server()
        self.assert_exits(desktop.program, killed)

    def assert_exits(self, process: Program, since: float) -> None:
        self.assertEqual(process.exit_status(), 1, process.error_output())
        self.assertLess(time.monotonic() - since, MAX_EXIT_TIME)
        self.assertRegex(process.error_output(), r"\A[^\n]+\n\Z")
        self.assertEqual(list(self.folder.iterdir()), [], "a crash left files")


if __name__ == "__main__":
    unittest.main()
