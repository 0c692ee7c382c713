#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""A wrong answer leads through the guided correction, and a right one to "Bravo": everything is at its place on a
real screen."""

import unittest

from case import WindowCase
from learner import line_at, read_line
from picture import Area
from screens import BLUE, CYAN, GREY, LIGHT_CYAN, LIGHT_RED, RED, STOP, WHITE, Sheet, points
from surroundings import Openbox

FIRST_LINE = line_at(80)
SECOND_LINE = line_at(140)
THIRD_LINE = line_at(200)
LEFT_EDGE = points(60, 0, 60, 0).left

WRONG = 1  # never the right answer: the least one is 11


class Addition(WindowCase):
    surroundings = Openbox

    def test_guided_correction(self) -> None:
        self.learner.start()
        self.learner.open("addition")
        sheet, operation = self.learner.see_operation("addition")
        self.assert_left_edge(sheet.box_of(BLUE, FIRST_LINE), LEFT_EDGE)
        units = operation.right % 10
        partial_result = operation._replace(right=operation.right - units).result
        self.learner.submit(WRONG)
        sheet = self.see_faux(83, arrow=True)
        text = f"{operation.left}{operation.sign}{operation.right}={WRONG}"
        self.assertEqual(read_line(sheet, FIRST_LINE, BLUE), text)

        tens_step = f"{operation.left}{operation.sign}{operation.right - units}="
        self.desktop.press("Right")
        sheet = self.see_step(SECOND_LINE)
        self.assert_left_edge(sheet.box_of(LIGHT_RED, SECOND_LINE), LEFT_EDGE)
        self.assertEqual(read_line(sheet, SECOND_LINE, LIGHT_RED), tens_step + "?")
        self.learner.submit(WRONG)
        answer = self.see_faux(143, arrow=True).box_of(BLUE, SECOND_LINE)

        units_step = f"{partial_result}{operation.sign}{units}="
        self.learner.click_arrow("addition")
        sheet = self.see_step(THIRD_LINE)
        self.assert_left_edge(sheet.box_of(LIGHT_RED, THIRD_LINE), answer.left)
        self.assertEqual(read_line(sheet, SECOND_LINE, LIGHT_RED), f"{tens_step}{partial_result}")
        self.assertEqual(read_line(sheet, THIRD_LINE, LIGHT_RED), units_step + "?")
        self.learner.submit(WRONG)
        self.see_faux(203, arrow=False)
        self.desktop.press("space")
        sheet = self.learner.wait_for("the score", lambda sheet: sheet.shows_arrow("addition"))
        self.assertEqual(read_line(sheet, THIRD_LINE, LIGHT_RED), f"{units_step}{operation.result}")

    def test_bravo(self) -> None:
        self.learner.start()
        self.learner.open("addition")
        sheet = self.answer_addition()
        ellipse = points(280, 224, 360, 280)
        upper_half = ellipse.grown(20)._replace(bottom=(ellipse.top + ellipse.bottom) // 2)  # the score is below
        outline = sheet.box_of(GREY, upper_half)._replace(bottom=ellipse.bottom + 1)
        self.assert_near(outline, ellipse.grown(1), tolerance=2)
        self.assertTrue(sheet.has(WHITE, points(290, 240, 350, 264)), "the word in white")
        around = points(220, 283, 420, 320)
        edge = sheet.box_of(GREY, around)
        self.assertAlmostEqual((edge.left + edge.right) / 2, 320 * 96 / 72, delta=2)
        self.assertAlmostEqual(edge.bottom, points(0, 0, 0, 310).bottom, delta=2)
        self.assertTrue(sheet.has(RED, around), "the score")
        self.learner.click(sheet, STOP)
        self.learner.see("accueil")

    def see_faux(self, top: int, arrow: bool) -> Sheet:
        """The box with "FAUX" in it, `top` points from the top, and the arrow or no arrow."""
        box = points(380, top, 460, top + 30)
        around = box.grown(20)
        sheet = self.learner.see_faux()
        self.assertEqual(sheet.shows_arrow("addition"), arrow)
        self.assertFalse(sheet.shows_stop())
        self.assert_near(sheet.box_of(CYAN, around), box.grown(1))
        self.assert_near(sheet.box_of(LIGHT_CYAN, around), box.grown(-2))
        self.assertTrue(sheet.has(LIGHT_RED, points(400, top + 7, 455, top + 27)))
        return sheet

    def see_step(self, line: Area) -> Sheet:
        def is_there(sheet: Sheet) -> bool:
            return sheet.has(LIGHT_RED, line) and not sheet.shows_arrow("addition")

        return self.learner.wait_for("the next step", is_there)

    def assert_left_edge(self, text: Area, expected: int) -> None:
        """Give or take what is blank beside the first digit."""
        self.assertAlmostEqual(text.left, expected, delta=5)


if __name__ == "__main__":
    unittest.main()
