#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""Plays the whole program like a blind user.

Requires a private session bus: `dbus-run-session -- hearing_test.py`.
"""

import unittest

from base_case import PROGRAM, WindowCase
from blind_learner import GAMES, BlindLearner
from desktop import Desktop
from listener import Listener


class PlayedWithScreenReader(WindowCase):
    def test_levels_and_challenge_can_be_completed(self) -> None:
        listener = self.enterContext(Listener())
        variables = {"QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1"}
        desktop = self.enterContext(Desktop(PROGRAM, variables=variables))
        learner = BlindLearner(self, listener, desktop.press)
        for button in GAMES:
            learner.play(button)
        listener.press_button("Accueil", "Quitter")
        listener.wait_for_announcement("Au revoir", lambda text: text.startswith("Au revoir"))
        listener.press_button("Au revoir", "Quitter")
        self.assert_ends(desktop.program)


if __name__ == "__main__":
    unittest.main()
