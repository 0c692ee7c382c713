#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""A child who sees nothing plays the whole program: listens, works it out, and types.

Needs a session bus of its own: `dbus-run-session -- hearing_test.py`.
"""

import re
import unittest

from case import program
from desktop import Display, Program
from ear import Ear
from learner import Operation

OPERATION = re.compile(r"(\d[\d ]*) (plus|moins|fois|divisé par) (\d+) égale \?")
SIGNS = {"plus": "+", "moins": "-", "fois": "x", "divisé par": ":"}

OBJECTIVE = 10
OPERATIONS_OF_CHALLENGE = 20


def heard(said: str) -> Operation:
    """The operation in what was said."""
    found = OPERATION.search(said)
    assert found is not None, said
    return Operation(int(found[1].replace(" ", "")), SIGNS[found[2]], int(found[3]))


class Hearing(unittest.TestCase):
    def setUp(self) -> None:
        self.ear = Ear()
        self.addCleanup(self.ear.close)
        self.display = Display()
        self.addCleanup(self.display.close)
        environment = self.display.environment() | {"QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1"}
        self.program = Program(program(), environment)
        self.addCleanup(self.program.close)
        self.ear.screen("Accueil")

    def test_additions(self) -> None:
        self.pass_level("additions-soustractions", "Additions et soustractions")

    def test_multiplications(self) -> None:
        self.pass_level("multiplications", "Multiplications")

    def test_divisions(self) -> None:
        self.pass_level("divisions", "Divisions")

    def pass_level(self, button: str, screen: str) -> None:
        operation = self.open(button, screen)
        for score in range(1, OBJECTIVE + 1):
            self.type_and_hear(screen, operation.result)
            self.press("Return")
            said = self.ear.hear("Bravo", lambda words: "Bravo" in words)
            self.assertIn(f"{operation.result}. Bravo. Score égale {score}", said)
            self.assertIn("Bravo", self.ear.texts(screen))
            self.press("Right")
            if score < OBJECTIVE:
                operation = self.hear_operation(screen)
        self.assertIn("Félicitations", self.ear.hear("the praise", lambda words: "Niveau réussi" in words))
        self.ear.screen("Niveau réussi")
        self.press("Return")
        self.leave()

    def test_challenge(self) -> None:
        operation = self.open("Record", "Record")
        for _ in range(OPERATIONS_OF_CHALLENGE):
            self.press(*str(operation.result), "Return")
            self.ear.hear("Bravo", lambda words: "Bravo" in words)
            self.press("Right")
            said = self.ear.hear("what follows", lambda words: OPERATION.search(words) or "Résultats" in words)
            if "Résultats" not in said:
                operation = heard(said)
        self.assertRegex(said, r"Résultats\. \d+ secondes?\. Opérations")
        self.assertTrue(said.endswith("Total. 20. 20. 100 pour cent"), said)
        kinds = ("additions", "soustractions", "multiplications", "divisions")
        rows = "|".join(self.ear.texts("Résultats"))
        for kind in kinds:
            self.assertIn(f"|{kind}|5|5|100 pour cent|", rows)
        self.press("Return")
        self.leave()

    # ---- What the child does --------------------------------------------------------------------------------

    def press(self, *keys: str) -> None:
        self.display.run("xdotool", "key", *keys)

    def open(self, button: str, screen: str) -> Operation:
        self.ear.press_button("Accueil", button)
        return self.hear_operation(screen)

    def hear_operation(self, screen: str) -> Operation:
        """It is announced, and can be read again."""
        operation = heard(self.ear.hear("an operation", OPERATION.search))
        self.assertEqual(heard(" | ".join(self.ear.texts(screen))), operation)
        return operation

    def type_and_hear(self, screen: str, number: int) -> None:
        """Each digit is answered by the number so far."""
        digits = str(number)
        for length in range(1, len(digits) + 1):
            self.press(digits[length - 1])
            self.ear.hear("the echo", lambda words: words == digits[:length])
        self.assertTrue(any(f"égale {number} ?" in text for text in self.ear.texts(screen)))

    def leave(self) -> None:
        self.ear.press_button("Accueil", "Quitter")
        self.ear.hear("Au revoir", lambda words: words.startswith("Au revoir"))
        self.ear.press_button("Au revoir", "Quitter")
        self.assertEqual(self.program.exit_status(), 0)
        self.assertEqual(self.program.errors(), "")


if __name__ == "__main__":
    unittest.main()
