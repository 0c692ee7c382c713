#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""Ten right answers pass the level; the goodbye screen ends the program well."""

import unittest

from case import WindowCase
from picture import Area
from screens import ARROWS, GREY, RED, Sheet, points

OBJECTIVE = 10


class Level(WindowCase):
    def test_additions(self) -> None:
        self.play("addition", centre=320, ligne_bravo=240)

    def test_multiplications(self) -> None:
        self.play("multiplication", centre=240, ligne_bravo=260)

    def test_divisions(self) -> None:
        self.play("division", centre=240, ligne_bravo=260)

    def play(self, screen: str, centre: int, ligne_bravo: int) -> None:
        self.learner.start()
        self.learner.open(screen)
        for score in range(1, OBJECTIVE + 1):
            _, operation = self.learner.see_operation(screen)
            self.learner.submit(operation.result)
            sheet = self.learner.see_bravo(screen)
            self.assert_bravo(sheet, centre, ligne_bravo)
            self.go_on(screen, sheet, score)

        sheet = self.learner.see("FIN")
        self.assertTrue(sheet.has(RED, points(300, 90, 480, 120)), "the word of praise")
        self.assertTrue(sheet.shows_arrow("FIN"))
        self.desktop.press("Return")
        self.learner.open("Aurevoir")
        self.desktop.press("Escape", "Right")  # neither means anything there
        self.learner.click_arrow("Aurevoir")
        self.assert_ended_well()

    def go_on(self, screen: str, sheet: Sheet, score: int) -> None:
        """By each of the three ways in turn."""
        if score % 3 == 0:
            self.learner.click(sheet, ARROWS[screen])
        else:
            self.desktop.press("Return" if score % 3 == 1 else "Right")

    def assert_bravo(self, sheet: Sheet, centre: int, ligne: int) -> None:
        """All in points."""
        ellipse = points(centre - 40, ligne + 12 - 28, centre + 40, ligne + 12 + 28)
        self.assert_near(self.outline(sheet, ellipse), ellipse.grown(1), tolerance=2)
        self.assertTrue(sheet.has((255, 255, 255), points(centre - 30, ligne, centre + 30, ligne + 24)), "the word in white")
        self.assertTrue(sheet.shows_stop())

    @staticmethod
    def outline(sheet: Sheet, ellipse: Area) -> Area:
        """The score box below begins where the ellipse ends, so only its upper half is looked at."""
        middle = (ellipse.top + ellipse.bottom) // 2
        box = sheet.box_of(GREY, ellipse.grown(20)._replace(bottom=middle))
        return box._replace(bottom=ellipse.bottom + 1)


if __name__ == "__main__":
    unittest.main()
