#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""The display gets another size in mid-operation: what is drawn stays, and so does what is drawn next. Where there
is too little room, all of it is shown smaller."""

import unittest

from case import WindowCase
from desktop import Display, Surroundings
from learner import EXERCISES, Operation, read_line
from reading import Unreadable
from screens import BLUE, TITLES, Sheet
from surroundings import Openbox

LINE = EXERCISES["addition"].line
LEAST_WIDTH = 896  # pixels; a narrower inner area is shown smaller
FRAME = 2  # pixels, on both sides together


class ResizedDisplay:
    def test_in_mid_operation(self) -> None:
        self.learner.start()
        self.learner.open("addition")
        _, operation = self.learner.see_operation("addition")
        first, rest = str(operation.result)[0], str(operation.result)[1:]
        self.desktop.press(first)
        before = self.see_answer(operation, first)

        for width, height in ((1024, 768), (900, 1024)):
            self.desktop.display.resize(width, height)
            self.see_answer(operation, first, width, height)
        self.desktop.display.resize(Display.width, Display.height)
        self.learner.wait_for("the picture as it was", lambda sheet: sheet.picture == before.picture)

        self.desktop.display.resize(800, 600)
        self.see_smaller((800 - FRAME) / LEAST_WIDTH)
        self.desktop.display.resize(1024, 768)
        self.see_answer(operation, first, 1024, 768)
        self.desktop.press(*rest)
        self.see_answer(operation, first + rest, 1024, 768)
        self.desktop.press("Return")
        self.learner.see_bravo("addition")

    def see_answer(
        self, operation: Operation, answer: str, width: int = Display.width, height: int = Display.height
    ) -> Sheet:
        expected = f"{operation.left}{operation.sign}{operation.right}={answer}?"

        def is_there(sheet: Sheet) -> bool:
            size = (sheet.picture.width, sheet.picture.height)
            try:
                return size == (width, height) and read_line(sheet, LINE, BLUE) == expected
            except Unreadable:  # the window is still smaller than the display
                return False

        return self.learner.wait_for(f"{expected} on {width} x {height} pixels", is_there)

    def see_smaller(self, scale: float) -> None:
        def is_there(sheet: Sheet) -> bool:
            title = sheet.title()
            return title is not None and abs(title.right - TITLES["addition"].right * scale) <= 2

        self.learner.wait_for(f"everything at {scale:.2f} of its size", is_there)


class WithoutWindowManager(ResizedDisplay, WindowCase):
    surroundings = Surroundings


class WithOpenbox(ResizedDisplay, WindowCase):
    surroundings = Openbox


if __name__ == "__main__":
    unittest.main()
