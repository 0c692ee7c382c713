#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""A whole challenge on a real screen: twenty right answers, five of each kind, against the stopwatch."""

import unittest
from collections import Counter

from case import WindowCase
from learner import STOPWATCH, read_stopwatch
from screens import ARROWS, CYAN, GREY, LIGHT_CYAN, points

LENGTH = 20
TABLE = points(20, 120, 460, 300)
WRONG = 1  # never a right answer


class Challenge(WindowCase):
    def test_whole_challenge(self) -> None:
        self.learner.start()
        self.learner.open("record")
        self.answer_wrongly()
        _, seconds = self.learner.see_stopwatch()
        kinds = Counter()
        while kinds.total() < LENGTH:
            _, operation = self.learner.see_operation("record")
            self.learner.submit(operation.result)
            self.learner.see_bravo("record")
            kinds[operation.sign] += 1
            self.desktop.press("Right")

        sheet = self.learner.see("FIN2")
        self.assertEqual(kinds, {"+": 5, "-": 5, "x": 5, ":": 5})
        self.assert_near(sheet.box_of(GREY, TABLE.grown(10)), TABLE, tolerance=2)
        self.assert_near(sheet.box_of(CYAN, STOPWATCH.grown(10)), STOPWATCH, tolerance=2)
        self.assertTrue(sheet.has(LIGHT_CYAN, STOPWATCH))
        self.assertGreaterEqual(read_stopwatch(sheet), seconds)
        self.learner.click(sheet, ARROWS["FIN2"])
        self.learner.see("accueil")

    def answer_wrongly(self) -> None:
        """Once the stopwatch runs; the correction follows."""
        self.learner.see_operation("record")
        self.learner.see_stopwatch()
        self.learner.submit(WRONG)
        self.learner.see_faux()
        self.desktop.press("Right")
        self.learner.see_correction()
        self.desktop.press("Right")

    def test_given_up(self) -> None:
        self.learner.start()
        self.learner.open("record")
        self.learner.see_operation("record")
        self.desktop.press("Escape")
        sheet = self.learner.see("FIN2")
        self.assertFalse(sheet.has(CYAN, STOPWATCH), "no time")
        self.assert_near(sheet.box_of(GREY, TABLE.grown(10)), TABLE, tolerance=2)


if __name__ == "__main__":
    unittest.main()
