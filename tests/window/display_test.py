#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""Without a display, the program exits at once with status 1 and one line on standard error, and does not crash.

It prints what Qt reports if something else is missing, or when asked.
"""

import os
import resource
import tempfile
import unittest
from contextlib import chdir

from base_case import PROGRAM, WindowCase
from desktop import DesktopEnvironment, Program, variables_without_display
from desktop_environments import Weston

MAX_EXIT_TIME = 2.0  # seconds


class DisplayFaults(WindowCase):
    def setUp(self) -> None:
        """Enables core dumps: a crash leaves a file in the working directory, which is empty."""
        _, hard_limit = resource.getrlimit(resource.RLIMIT_CORE)
        resource.setrlimit(resource.RLIMIT_CORE, (hard_limit, hard_limit))
        self.enterContext(chdir(self.enterContext(tempfile.TemporaryDirectory())))

    def test_exits_without_display(self) -> None:
        """None is named, or it does not exist."""
        self.assert_exits(self.start_without_display())
        self.assert_exits(self.start_without_display(DISPLAY=":4711"))

    def test_exits_when_display_server_is_killed(self) -> None:
        for environment in (DesktopEnvironment, Weston):
            with self.subTest(environment=environment):
                learner = self.start(environment)
                learner.open("addition")
                learner.answer_correctly("addition")
                self.assertEqual(learner.desktop.program.error_output(), "")
                learner.desktop.environment.kill_display_server()
                self.assert_exits(learner.desktop.program)

    def test_prints_the_message_of_qt_if_the_platform_is_unknown(self) -> None:
        errors = self.error_output_of(self.start_without_display(QT_QPA_PLATFORM="abacus"))
        self.assertIn('Could not find the Qt platform plugin "abacus"', errors)
        self.assertIn("no Qt platform plugin could be initialized", errors)
        self.assertNotIn("Chiffrolo\N{NO-BREAK SPACE}:", errors)

    def test_prints_the_messages_of_qt_when_asked(self) -> None:
        errors = self.error_output_of(self.start_without_display(QT_DEBUG_PLUGINS="1"))
        self.assertIn("could not connect to display", errors)
        self.assertIn("Chiffrolo\N{NO-BREAK SPACE}:", errors.splitlines()[-1])

    def start_without_display(self, **variables: str) -> Program:
        return self.enterContext(Program([str(PROGRAM)], variables_without_display() | variables))

    def assert_exits(self, program: Program) -> None:
        self.assertRegex(self.error_output_of(program), r"\A[^\n]+\n\Z")
        self.assertEqual(os.listdir(), [], "a crash left files")

    def error_output_of(self, program: Program) -> str:
        """After its end, at once."""
        self.assertEqual(program.exit_status(MAX_EXIT_TIME), 1, program.error_output())
        return program.error_output()


if __name__ == "__main__":
    unittest.main()
