#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""The positions of an addition, its guided correction and "Bravo" in the window."""

import unittest

from base_case import WindowCase
from desktop_environments import Openbox
from picture import Area
from learner import line_at, read_line
from screens import BLUE, CYAN, GREY, LIGHT_CYAN, LIGHT_RED, RED, STOP, WHITE, ContentArea, points

FIRST_LINE = line_at(80)
SECOND_LINE = line_at(140)
THIRD_LINE = line_at(200)
LEFT_EDGE = points(60, 0, 60, 0).left

WRONG = 1  # never the right answer, which is at least 11


class Addition(WindowCase):
    environment = Openbox

    def test_wrong_answer_leads_through_guided_correction(self) -> None:
        self.learner.wait_for_start()
        self.learner.open("addition")
        content, operation = self.learner.wait_for_operation("addition")
        self.assert_left_edge(content.bounding_box(BLUE, FIRST_LINE), LEFT_EDGE)
        units = operation.right % 10
        partial_result = operation._replace(right=operation.right - units).result
        self.learner.submit(WRONG)
        content = self.assert_faux_at(83, arrow=True)
        text = f"{operation.left}{operation.sign}{operation.right}={WRONG}"
        self.assertEqual(read_line(content, FIRST_LINE, BLUE), text)

        tens_step = f"{operation.left}{operation.sign}{operation.right - units}="
        self.desktop.press("Right")
        content = self.wait_for_step(SECOND_LINE)
        self.assert_left_edge(content.bounding_box(LIGHT_RED, SECOND_LINE), LEFT_EDGE)
        self.assertEqual(read_line(content, SECOND_LINE, LIGHT_RED), tens_step + "?")
        self.learner.submit(WRONG)
        answer = self.assert_faux_at(143, arrow=True).bounding_box(BLUE, SECOND_LINE)

        units_step = f"{partial_result}{operation.sign}{units}="
        self.learner.click_arrow("addition")
        content = self.wait_for_step(THIRD_LINE)
        self.assert_left_edge(content.bounding_box(LIGHT_RED, THIRD_LINE), answer.left)
        self.assertEqual(read_line(content, SECOND_LINE, LIGHT_RED), f"{tens_step}{partial_result}")
        self.assertEqual(read_line(content, THIRD_LINE, LIGHT_RED), units_step + "?")
        self.learner.submit(WRONG)
        self.assert_faux_at(203, arrow=False)
        self.desktop.press("space")
        content = self.learner.wait_for("the score", lambda content: content.shows_arrow("addition"))
        self.assertEqual(read_line(content, THIRD_LINE, LIGHT_RED), f"{units_step}{operation.result}")

    def test_right_answer_shows_bravo(self) -> None:
        self.learner.wait_for_start()
        self.learner.open("addition")
        content = self.answer_addition()
        ellipse = points(280, 224, 360, 280)
        upper_half = ellipse.grown(20)._replace(bottom=(ellipse.top + ellipse.bottom) // 2)  # the score is below
        outline = content.bounding_box(GREY, upper_half)._replace(bottom=ellipse.bottom + 1)
        self.assert_near(outline, ellipse.grown(1), tolerance=2)
        self.assertTrue(content.has(WHITE, points(290, 240, 350, 264)), "the word in white")
        around = points(220, 283, 420, 320)
        edge = content.bounding_box(GREY, around)
        self.assertAlmostEqual((edge.left + edge.right) / 2, 320 * 96 / 72, delta=2)
        self.assertAlmostEqual(edge.bottom, points(0, 0, 0, 310).bottom, delta=2)
        self.assertTrue(content.has(RED, around), "the score")
        self.learner.click(content, STOP)
        self.learner.wait_for_screen("accueil")

    def assert_faux_at(self, top: int, arrow: bool) -> ContentArea:
        """`top` is the distance of the box from the top, in points. `arrow`: whether the arrow is shown."""
        box = points(380, top, 460, top + 30)
        around = box.grown(20)
        content = self.learner.wait_for_faux()
        self.assertEqual(content.shows_arrow("addition"), arrow)
        self.assertFalse(content.shows_stop())
        self.assert_near(content.bounding_box(CYAN, around), box.grown(1))
        self.assert_near(content.bounding_box(LIGHT_CYAN, around), box.grown(-2))
        self.assertTrue(content.has(LIGHT_RED, points(400, top + 7, 455, top + 27)))
        return content

    def wait_for_step(self, line: Area) -> ContentArea:
        def is_shown(content: ContentArea) -> bool:
            return content.has(LIGHT_RED, line) and not content.shows_arrow("addition")

        return self.learner.wait_for("the next step", is_shown)

    def assert_left_edge(self, text: Area, expected: int) -> None:
        """Tolerates the blank pixels to the left of the first digit."""
        self.assertAlmostEqual(text.left, expected, delta=5)


if __name__ == "__main__":
    unittest.main()
