#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""On the keyboard layouts of French-speaking countries, digit keys type digits regardless of Shift and locks.

Keys are pressed by their key codes, which are positions on the keyboard. The layout determines their characters.
"""

import unittest
from typing import NamedTuple

from base_case import PROGRAM, WindowCase
from desktop import DesktopEnvironment
from desktop_environments import Weston


def codes(first: int, digits: str) -> dict[str, str]:
    """The codes of adjacent keys, by digit."""
    return {digit: str(first + index) for index, digit in enumerate(digits)}


DIGIT_ROW = codes(10, "1234567890")
KEYPAD = codes(79, "789") | codes(83, "456") | codes(87, "1230")
RIGHT_OF_ZERO, SECOND_RIGHT_OF_ZERO, LEFT_OF_RIGHT_SHIFT = "20", "21", "61"
SHIFT, ALT_GR = "50+", "108+"  # held down while the next key is pressed
CAPS_LOCK, NUM_LOCK = "66", "77"


class Layout(NamedTuple):
    name: str
    variant: str
    digits_need_shift: bool  # in other programs
    equals: str


FRENCH = Layout("fr", "", True, SECOND_RIGHT_OF_ZERO)
LAYOUTS = [
    FRENCH,
    Layout("fr", "bepo", True, RIGHT_OF_ZERO),
    Layout("fr", "afnor", True, SHIFT + LEFT_OF_RIGHT_SHIFT),
    Layout("be", "", True, LEFT_OF_RIGHT_SHIFT),
    Layout("ch", "fr", False, SHIFT + DIGIT_ROW["0"]),
    Layout("ca", "", False, SECOND_RIGHT_OF_ZERO),
    Layout("us", "", False, SECOND_RIGHT_OF_ZERO),
]


class OnX11(WindowCase):
    path = PROGRAM
    environment = DesktopEnvironment
    layouts = LAYOUTS
    knows_alt_gr = True

    def test_digit_keys_type_digits_on_each_layout(self) -> None:
        """Plays additions. Escape and Right are the same keys in all layouts."""
        self.learner = self.start(self.environment, self.path)
        self.desktop = self.learner.desktop
        for layout in self.layouts:
            with self.subTest(layout=layout.name, variant=layout.variant):
                self.desktop.display.set_keyboard_layout(layout.name, layout.variant)
                self.learner.open("addition")
                self.play(layout)
                self.desktop.press("Escape")

    def play(self, layout: Layout) -> None:
        self.answer(DIGIT_ROW, layout)
        if layout.digits_need_shift:
            self.answer(DIGIT_ROW, layout, modifier=SHIFT)
        self.answer(KEYPAD, layout)
        self.answer(KEYPAD, layout, NUM_LOCK)
        if layout is FRENCH:
            self.learner.wait_for_operation("addition")
            if self.knows_alt_gr:  # types characters that are not added to the answer
                self.desktop.press(*(ALT_GR + key for key in DIGIT_ROW.values()))
            self.answer(DIGIT_ROW, layout, CAPS_LOCK)

    def answer(self, keys: dict[str, str], layout: Layout, *locks: str, modifier: str = "") -> None:
        """Answers an operation. `keys` are key codes by digit. `locks` are on meanwhile."""
        _, operation = self.learner.wait_for_operation("addition")
        digits = [modifier + keys[digit] for digit in str(operation.result)]
        self.desktop.press(*locks, *digits, layout.equals)
        self.learner.wait_for_bravo("addition")
        self.desktop.press("Right", *locks)


class OnWayland(OnX11):
    environment = Weston
    layouts = [FRENCH]


if __name__ == "__main__":
    unittest.main()
