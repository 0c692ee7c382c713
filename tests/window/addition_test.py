#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""The positions of an addition, its guided correction and "Bravo" in the window."""

import unittest

from base_case import WindowCase, answer_addition
from desktop_environments import Openbox
from picture import Area
from learner import line_at, read_line
from screens import BLUE, CYAN, GREY, LIGHT_CYAN, LIGHT_RED, RED, WHITE, ContentArea, points

WRONG = 1  # never the right answer, which is at least 11


class Addition(WindowCase):
    environment = Openbox

    def setUp(self) -> None:
        super().setUp()
        self.learner.open("addition")

    def test_wrong_answer_leads_through_guided_correction(self) -> None:
        content, operation = self.learner.wait_for_operation("addition")
        text = content.bounding_box(BLUE, line_at(80))
        self.assertAlmostEqual(text.left, 60 * 96 / 72, delta=5)  # a digit begins with blank pixels
        left, sign, right = operation
        units = right % 10
        partial_result = operation._replace(right=right - units).result
        content = self.answer_wrongly(80, arrow=True)
        self.assertEqual(read_line(content, line_at(80), BLUE), f"{left}{sign}{right}={WRONG}")
        steps = [(140, f"{left}{sign}{right - units}=", partial_result),
                 (200, f"{partial_result}{sign}{units}=", operation.result)]
        for top, text, _ in steps:
            self.learner.click_arrow("addition")
            content = self.learner.wait_for("the next step", lambda content: content.has(LIGHT_RED, line_at(top)))
            self.assertFalse(content.shows_arrow("addition"))
            self.assertEqual(read_line(content, line_at(top), LIGHT_RED), text + "?")
            self.answer_wrongly(top, arrow=top == 140)
        self.desktop.press("space")
        content = self.learner.wait_for("the score", lambda content: content.shows_arrow("addition"))
        for top, text, result in steps:
            self.assertEqual(read_line(content, line_at(top), LIGHT_RED), f"{text}{result}")

    def answer_wrongly(self, line: int, arrow: bool) -> ContentArea:
        """Checks the box of "FAUX" beside the line. `arrow`: whether the arrow is shown."""
        self.learner.submit(WRONG)
        content = self.learner.wait_for_faux()
        self.assertEqual((content.shows_arrow("addition"), content.shows_stop("addition")), (arrow, False))
        box = points(380, line + 3, 460, line + 33)
        self.assert_near(content.bounding_box(CYAN, box.grown(20)), box.grown(1))
        self.assert_near(content.bounding_box(LIGHT_CYAN, box.grown(20)), box.grown(-2))
        self.assertTrue(content.has(LIGHT_RED, box.grown(-4)), "the word")
        return content

    def test_right_answer_shows_bravo(self) -> None:
        content = answer_addition(self.learner)
        ellipse = points(280, 224, 360, 280)
        upper_half = ellipse.grown(20)._replace(bottom=(ellipse.top + ellipse.bottom) // 2)  # the score is below
        outline = content.bounding_box(GREY, upper_half)._replace(bottom=ellipse.bottom + 1)
        self.assert_near(outline, ellipse.grown(1), tolerance=2)
        self.assertTrue(content.has(WHITE, points(290, 240, 350, 264)), "the word in white")
        below = points(220, 283, 420, 320)
        score = content.bounding_box(GREY, below)
        self.assertAlmostEqual((score.left + score.right) / 2, 320 * 96 / 72, delta=2)
        self.assertAlmostEqual(score.bottom, 310 * 96 / 72, delta=2)
        self.assertTrue(content.has(RED, below), "the score")
        self.assertTrue(content.shows_stop("addition"))
        self.learner.click("addition", "arret")
        self.learner.wait_for_screen("accueil")

    def assert_near(self, found: Area | None, expected: Area, tolerance: int = 1) -> None:
        """`tolerance` is in pixels, for each edge."""
        self.assertIsNotNone(found, f"nothing found near {expected}")
        distance = max(abs(one - other) for one, other in zip(found, expected))
        self.assertLessEqual(distance, tolerance, f"{found} is not near {expected}")


if __name__ == "__main__":
    unittest.main()
