#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""Plays the whole program like a blind user: reads only announcements and the accessibility tree.

Requires a private session bus: `dbus-run-session -- hearing_test.py`.
"""

import re
import unittest

from base_case import program_path
from desktop import Display, Program
from listener import Listener
from learner import Operation

OPERATION = re.compile(r"(\d[\d ]*) (plus|moins|fois|divisé par) (\d+) égale \?")
SIGNS = {"plus": "+", "moins": "-", "fois": "x", "divisé par": ":"}

OBJECTIVE = 10  # points that complete a level
CHALLENGE = 20  # right answers that complete a challenge


def parse_operation(text: str) -> Operation:
    """The operation in an announcement or in the texts of a screen."""
    found = OPERATION.search(text)
    assert found is not None, text
    return Operation(int(found[1].replace(" ", "")), SIGNS[found[2]], int(found[3]))


class PlayedWithScreenReader(unittest.TestCase):
    def setUp(self) -> None:
        self.listener = Listener()
        self.addCleanup(self.listener.close)
        self.display = Display()
        self.addCleanup(self.display.close)
        variables = self.display.variables() | {"QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1"}
        self.program = Program(program_path(), variables)
        self.addCleanup(self.program.close)
        self.listener.wait_for_screen("Accueil")

    def test_level_of_additions_can_be_completed(self) -> None:
        self.complete_level("additions-soustractions", "Additions et soustractions")

    def test_level_of_multiplications_can_be_completed(self) -> None:
        self.complete_level("multiplications", "Multiplications")

    def test_level_of_divisions_can_be_completed(self) -> None:
        self.complete_level("divisions", "Divisions")

    def complete_level(self, button: str, screen: str) -> None:
        operation = self.open(button, screen)
        for score in range(1, OBJECTIVE + 1):
            self.type_answer(screen, operation.result)
            self.press("Return")
            announcement = self.listener.wait_for_announcement("Bravo", lambda text: "Bravo" in text)
            self.assertIn(f"{operation.result}. Bravo. Score égale {score}", announcement)
            self.assertIn("Bravo", self.listener.texts(screen))
            self.press("Right")
            if score < OBJECTIVE:
                operation = self.wait_for_operation(screen)
        announcement = self.listener.wait_for_announcement("the level's end", lambda text: "Niveau réussi" in text)
        self.assertIn("Félicitations", announcement)
        self.listener.wait_for_screen("Niveau réussi")
        self.press("Return")
        self.quit()

    def test_challenge_can_be_completed(self) -> None:
        operation = self.open("Record", "Record")
        for _ in range(CHALLENGE):
            self.press(*str(operation.result), "Return")
            self.listener.wait_for_announcement("Bravo", lambda text: "Bravo" in text)
            self.press("Right")
            announcement = self.listener.wait_for_announcement(
                "the next operation or the results", lambda text: OPERATION.search(text) or "Résultats" in text
            )
            if "Résultats" not in announcement:
                operation = parse_operation(announcement)
        self.assertRegex(announcement, r"Résultats\. \d+ secondes?\. Opérations")
        self.assertTrue(announcement.endswith("Total. 20. 20. 100 pour cent"), announcement)
        kinds = ("additions", "soustractions", "multiplications", "divisions")
        rows = "|".join(self.listener.texts("Résultats"))
        for kind in kinds:
            self.assertIn(f"|{kind}|5|5|100 pour cent|", rows)
        self.press("Return")
        self.quit()

    # ---- Actions --------------------------------------------------------------------------------------------

    def press(self, *keys: str) -> None:
        self.display.run("xdotool", "key", *keys)

    def open(self, button: str, screen: str) -> Operation:
        self.listener.press_button("Accueil", button)
        return self.wait_for_operation(screen)

    def wait_for_operation(self, screen: str) -> Operation:
        """Waits for its announcement. The texts of the screen contain the same operation."""
        operation = parse_operation(self.listener.wait_for_announcement("an operation", OPERATION.search))
        self.assertEqual(parse_operation(" | ".join(self.listener.texts(screen))), operation)
        return operation

    def type_answer(self, screen: str, number: int) -> None:
        """Each digit is followed by an announcement of the number typed so far."""
        digits = str(number)
        for length in range(1, len(digits) + 1):
            self.press(digits[length - 1])
            self.listener.wait_for_announcement("the number so far", lambda text: text == digits[:length])
        self.assertTrue(any(f"égale {number} ?" in text for text in self.listener.texts(screen)))

    def quit(self) -> None:
        self.listener.press_button("Accueil", "Quitter")
        self.listener.wait_for_announcement("Au revoir", lambda text: text.startswith("Au revoir"))
        self.listener.press_button("Au revoir", "Quitter")
        self.assertEqual(self.program.exit_status(), 0)
        self.assertEqual(self.program.error_output(), "")


if __name__ == "__main__":
    unittest.main()
