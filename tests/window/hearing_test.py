#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""Plays the whole program like a blind user: reads only announcements and the accessibility tree.

Requires a private session bus: `dbus-run-session -- hearing_test.py`.
"""

import re
import unittest

from base_case import PROGRAM, WindowCase
from desktop import Desktop
from learner import Operation
from listener import Listener

OPERATION = re.compile(r"(\d[\d ]*) (plus|moins|fois|divisé par) (\d+) égale \?")
SIGNS = {"plus": "+", "moins": "-", "fois": "x", "divisé par": ":"}

LEVEL = (10, "Niveau réussi", r"Félicitations")
KINDS = ("additions", "soustractions", "multiplications", "divisions")
ALL_RIGHT = "".join(rf"{kind}\. 5\. 5\. 100 pour cent\. " for kind in KINDS) + r"Total\. 20\. 20\. 100 pour cent$"
CHALLENGE = (20, "Résultats", r"\d+ secondes?\. Opérations\. .*" + ALL_RIGHT)
# A button, its screen, the right answers that complete it, the screen after them, and what is announced there.
GAMES = [
    ("additions-soustractions", "Additions et soustractions", *LEVEL),
    ("multiplications", "Multiplications", *LEVEL),
    ("divisions", "Divisions", *LEVEL),
    ("Record", "Record", *CHALLENGE),
]


def parse_operation(text: str) -> Operation:
    """The operation in an announcement or in the texts of a screen."""
    found = OPERATION.search(text)
    assert found is not None, text
    return Operation(int(found[1].replace(" ", "")), SIGNS[found[2]], int(found[3]))


class PlayedWithScreenReader(WindowCase):
    def test_levels_and_challenge_can_be_completed(self) -> None:
        self.listener = Listener()
        self.addCleanup(self.listener.close)
        variables = {"QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1"}
        self.desktop = self.enterContext(Desktop(PROGRAM, variables=variables))
        for button, screen, operations, end, announced in GAMES:
            self.listener.press_button("Accueil", button)
            for score in range(1, operations + 1):
                self.answer_correctly(screen, score)
            announcement = self.listener.wait_for_announcement(end, lambda text: text.startswith(end))
            for text in (announcement, ". ".join(self.listener.texts(end))):
                self.assertRegex(text, announced)
            self.desktop.press("Return")
        self.listener.press_button("Accueil", "Quitter")
        self.listener.wait_for_announcement("Au revoir", lambda text: text.startswith("Au revoir"))
        self.listener.press_button("Au revoir", "Quitter")
        self.assert_ends(self.desktop.program)

    def answer_correctly(self, screen: str, score: int) -> None:
        """Waits for the announcement of the operation. The texts of the screen contain the same operation."""
        operation = parse_operation(self.listener.wait_for_announcement("an operation", OPERATION.search))
        self.assertEqual(parse_operation(" | ".join(self.listener.texts(screen))), operation)
        self.type_answer(screen, str(operation.result))
        self.desktop.press("Return")
        announcement = self.listener.wait_for_announcement("Bravo", lambda text: "Bravo" in text)
        self.assertIn(f"{operation.result}. Bravo. Score égale {score}", announcement)
        self.assertIn("Bravo", self.listener.texts(screen))
        self.desktop.press("Right")

    def type_answer(self, screen: str, digits: str) -> None:
        """Each digit is followed by an announcement of the number typed so far."""
        for length, digit in enumerate(digits, 1):
            self.desktop.press(digit)
            self.listener.wait_for_announcement("the number so far", lambda text: text == digits[:length])
        self.assertTrue(any(f"égale {digits} ?" in text for text in self.listener.texts(screen)))


if __name__ == "__main__":
    unittest.main()
