# SPDX-License-Identifier: MIT
"""Plays the program like a blind user: reads only announcements and the accessibility tree."""

import re
import unittest
from collections.abc import Callable
from typing import Protocol

from learner import Operation

OPERATION = re.compile(r"(\d[\d ]*) (plus|moins|fois|divisé par) (\d+) égale \?")
SIGNS = {"plus": "+", "moins": "-", "fois": "x", "divisé par": ":"}

LEVEL = (10, "Niveau réussi", r"Félicitations")
KINDS = ("additions", "soustractions", "multiplications", "divisions")
ALL_RIGHT = "".join(rf"{kind}\. 5\. 5\. 100 pour cent\. " for kind in KINDS) + r"Total\. 20\. 20\. 100 pour cent$"
CHALLENGE = (20, "Résultats", r"\d+ secondes?\. Opérations\. .*" + ALL_RIGHT)
# By the button of the home screen: the screen that it opens, the right answers that complete it, the screen after
# them, and what is announced there.
GAMES = {
    "additions-soustractions": ("Additions et soustractions", *LEVEL),
    "multiplications": ("Multiplications", *LEVEL),
    "divisions": ("Divisions", *LEVEL),
    "Record": ("Record", *CHALLENGE),
}


class ScreenReader(Protocol):
    def wait_for_announcement(self, what: str, matches: Callable[[str], object]) -> str:
        """Returns the first announcement that matches. Discards those before it."""
    def texts(self, screen: str) -> list[str]:
        """The texts on the screen of this name, from top to bottom."""
    def press_button(self, screen: str, name: str) -> None: ...


def parse_operation(text: str) -> Operation:
    """The operation in an announcement or in the texts of a screen."""
    found = OPERATION.search(text)
    assert found is not None, text
    return Operation(int(found[1].replace(" ", "")), SIGNS[found[2]], int(found[3]))


class BlindLearner:
    def __init__(self, case: unittest.TestCase, reader: ScreenReader, press: Callable[[str], None]) -> None:
        self.case, self.reader, self.press = case, reader, press

    def play(self, button: str) -> None:
        """From the home screen until it is shown again."""
        self.reader.press_button("Accueil", button)
        screen, operations, end, announced = GAMES[button]
        for score in range(1, operations + 1):
            self.answer_correctly(screen, score)
        announcement = self.reader.wait_for_announcement(end, lambda text: text.startswith(end))
        for text in (announcement, ". ".join(self.reader.texts(end))):
            self.case.assertRegex(text, announced)
        self.press("Return")

    def answer_correctly(self, screen: str, score: int) -> None:
        """Goes on to the next operation."""
        operation = self.hear_operation(screen)
        self.type_answer(screen, str(operation.result))
        self.press("Return")
        announcement = self.reader.wait_for_announcement("Bravo", lambda text: "Bravo" in text)
        self.case.assertIn(f"{operation.result}. Bravo. Score égale {score}", announcement)
        self.case.assertIn("Bravo", self.reader.texts(screen))
        self.press("Right")

    def hear_operation(self, screen: str) -> Operation:
        """Waits for its announcement. The texts of the screen contain the same operation."""
        operation = parse_operation(self.reader.wait_for_announcement("an operation", OPERATION.search))
        self.case.assertEqual(parse_operation(" | ".join(self.reader.texts(screen))), operation)
        return operation

    def type_answer(self, screen: str, digits: str) -> None:
        """Each digit is followed by an announcement of the number typed so far."""
        for length, digit in enumerate(digits, 1):
            self.press(digit)
            self.reader.wait_for_announcement("the number so far", lambda text: text == digits[:length])
        self.case.assertTrue(any(f"égale {digits} ?" in text for text in self.reader.texts(screen)))
