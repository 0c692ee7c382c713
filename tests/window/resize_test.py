#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""Resizes the display during an operation. The drawing is kept, and scaled down if the display is too small."""

import unittest

from base_case import WindowCase
from desktop import Display
from desktop_environments import Openbox
from learner import EXERCISES, read_line
from screens import BLUE, ContentArea
from text_recognition import Unreadable

LINE = EXERCISES["addition"].line
MIN_WIDTH = 896  # pixels, of the content area; a narrower one is scaled down
FRAME_WIDTH = 2  # pixels, left and right together


class WithoutWindowManager(WindowCase):
    def test_drawing_is_kept_when_display_is_resized(self) -> None:
        self.learner.open("addition")
        _, operation = self.learner.wait_for_operation("addition")
        first, rest = str(operation.result)[0], str(operation.result)[1:]
        line = f"{operation.left}{operation.sign}{operation.right}={first}?"
        whole = Display.width, Display.height
        self.desktop.press(first)
        before = self.wait_for_line(line, *whole)
        for size in ((1024, 768), (900, 1024)):
            self.desktop.display.resize(*size)
            self.wait_for_line(line, *size)
        self.desktop.display.resize(*whole)
        self.learner.wait_for("the original picture", lambda content: content.picture == before.picture)

        self.desktop.display.resize(800, 600)
        right_edge = self.learner.layouts["addition"].title.area.right * (800 - FRAME_WIDTH) / MIN_WIDTH

        def is_scaled_down(content: ContentArea) -> bool:
            return content.title() is not None and abs(content.title().right - right_edge) <= 2

        self.learner.wait_for("the screen scaled down", is_scaled_down)
        self.desktop.display.resize(1024, 768)
        self.wait_for_line(line, 1024, 768)
        self.desktop.press(*rest, "Return")
        self.learner.wait_for_bravo("addition")

    def wait_for_line(self, expected: str, width: int, height: int) -> ContentArea:
        def is_shown(content: ContentArea) -> bool:
            size = content.picture.width, content.picture.height
            try:
                return size == (width, height) and read_line(content, LINE, BLUE) == expected
            except Unreadable:  # the window is still smaller than the display
                return False

        return self.learner.wait_for(f"{expected} on {width} x {height} pixels", is_shown)


class WithOpenbox(WithoutWindowManager):
    environment = Openbox


if __name__ == "__main__":
    unittest.main()
