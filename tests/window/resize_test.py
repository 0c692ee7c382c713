#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""Resizes the display during an operation. The drawing is kept, and scaled down if the display is too small."""

import unittest

from base_case import WindowCase
from desktop import DesktopEnvironment, Display
from desktop_environments import Openbox
from learner import EXERCISES, Operation, read_line
from screens import BLUE, TITLES, ContentArea
from text_recognition import Unreadable

LINE = EXERCISES["addition"].line
MIN_WIDTH = 896  # pixels, of the content area; a narrower one is scaled down
FRAME_WIDTH = 2  # pixels, left and right together


class ResizeTests:
    def test_drawing_is_kept_when_display_is_resized(self) -> None:
        self.learner.wait_for_start()
        self.learner.open("addition")
        _, operation = self.learner.wait_for_operation("addition")
        first, rest = str(operation.result)[0], str(operation.result)[1:]
        self.desktop.press(first)
        before = self.wait_for_answer(operation, first)

        for width, height in ((1024, 768), (900, 1024)):
            self.desktop.display.resize(width, height)
            self.wait_for_answer(operation, first, width, height)
        self.desktop.display.resize(Display.width, Display.height)
        self.learner.wait_for("the original picture", lambda content: content.picture == before.picture)

        self.desktop.display.resize(800, 600)
        self.wait_for_scale((800 - FRAME_WIDTH) / MIN_WIDTH)
        self.desktop.display.resize(1024, 768)
        self.wait_for_answer(operation, first, 1024, 768)
        self.desktop.press(*rest)
        self.wait_for_answer(operation, first + rest, 1024, 768)
        self.desktop.press("Return")
        self.learner.wait_for_bravo("addition")

    def wait_for_answer(
        self, operation: Operation, answer: str, width: int = Display.width, height: int = Display.height
    ) -> ContentArea:
        expected = f"{operation.left}{operation.sign}{operation.right}={answer}?"

        def is_shown(content: ContentArea) -> bool:
            size = (content.picture.width, content.picture.height)
            try:
                return size == (width, height) and read_line(content, LINE, BLUE) == expected
            except Unreadable:  # the window is still smaller than the display
                return False

        return self.learner.wait_for(f"{expected} on {width} x {height} pixels", is_shown)

    def wait_for_scale(self, scale: float) -> None:
        def is_shown(content: ContentArea) -> bool:
            title = content.title()
            return title is not None and abs(title.right - TITLES["addition"].right * scale) <= 2

        self.learner.wait_for(f"the screen at scale {scale:.2f}", is_shown)


class WithoutWindowManager(ResizeTests, WindowCase):
    environment = DesktopEnvironment


class WithOpenbox(ResizeTests, WindowCase):
    environment = Openbox


if __name__ == "__main__":
    unittest.main()
